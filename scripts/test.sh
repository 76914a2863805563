#!/usr/bin/env bash
# Builds with warnings as errors and runs every test through CTest, headless.
# Fails when any test fails or when CTest found no test at all.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export BUILD_DIR=${BUILD_DIR:-$root/build}
"$root/scripts/build.sh" -DKORVANE_WERROR=ON -DKORVANE_BUILD_TESTS=ON "$@"
export QT_QPA_PLATFORM=offscreen
samples=$(cd "$root/.." && pwd)/shared/comtrade-samples
if [ -d "$samples" ]; then
    export KORVANE_SAMPLES=$samples
fi
count=$(ctest --test-dir "$BUILD_DIR" -N | sed -n 's/^Total Tests: \([0-9]*\)$/\1/p')
if [ "${count:-0}" -eq 0 ]; then
    echo "CTest found no test: the suite must never pass empty" >&2
    exit 1
fi
ctest --test-dir "$BUILD_DIR" --output-on-failure -j "$(nproc)"
