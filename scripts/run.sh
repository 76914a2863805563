#!/usr/bin/env bash
# Builds the library and its host, then opens the record named on the command line,
# or the sample record the project makes itself.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export BUILD_DIR=${BUILD_DIR:-$root/build}
"$root/scripts/build.sh" -DKORVANE_BUILD_TESTS=OFF
exec "$BUILD_DIR/apps/korvane" "$@"
