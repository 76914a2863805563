#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need; does nothing when all are present.
set -euo pipefail
packages=(qtbase5-dev qtbase5-dev-tools libqt5svg5-dev qttools5-dev-tools qttools5-dev
          libarchive-dev libchardet-dev pkg-config cmake ninja-build g++ clang
          libclang-rt-14-dev libbenchmark-dev)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo_cmd=""
    [ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
    $sudo_cmd apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
