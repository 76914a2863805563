#!/usr/bin/env bash
# Runs the real viewer on a virtual X screen (xvfb-run) with the sample record and writes what the
# screen shows of its window to docs/screenshot.png, the picture the README shows.
#   scripts/screenshot.sh [LANGUAGE]   "ru" (the default) or "en": the interface language, set in
#                                      settings of the run's own; "en" writes docs/screenshot-en.png
set -euo pipefail
language=${1:-ru}
picture=screenshot.png
[ "$language" = ru ] || picture=screenshot-$language.png
root=$(cd "$(dirname "$0")/.." && pwd)
export BUILD_DIR=${BUILD_DIR:-$root/build}
if ! command -v xvfb-run >/dev/null; then
    sudo_cmd=""
    [ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
    $sudo_cmd apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq --no-install-recommends xvfb xauth
fi
"$root/scripts/build.sh" -DKORVANE_BUILD_TESTS=OFF
mkdir -p "$root/docs"
config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
mkdir -p "$config/korvane"
printf '[Language]\nLanguageCode=%s\n' "$language" >"$config/korvane/Korvane.ini"
xvfb-run -a -s "-screen 0 1280x800x24" env -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb XDG_CONFIG_HOME="$config" \
    "$BUILD_DIR/apps/korvane" --grab "$root/docs/$picture" "$BUILD_DIR/sample/korvane-sample.CFG"
