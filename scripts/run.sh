#!/usr/bin/env bash
# Builds the library and its viewer, then opens the record named on the command line, or the sample
# record the project makes itself, in the viewer's window. Without a display (neither DISPLAY nor
# WAYLAND_DISPLAY), it draws the same window offscreen into build/korvane-window.png, prints what
# the record holds and where the picture is, and exits.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export BUILD_DIR=${BUILD_DIR:-$root/build}
"$root/scripts/build.sh" -DKORVANE_BUILD_TESTS=OFF
records=("$@")
[ ${#records[@]} -gt 0 ] || records=("$BUILD_DIR/sample/korvane-sample.CFG")
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    QT_QPA_PLATFORM=offscreen exec "$BUILD_DIR/apps/korvane" --grab "$BUILD_DIR/korvane-window.png" "${records[@]}"
fi
exec "$BUILD_DIR/apps/korvane" "${records[@]}"
