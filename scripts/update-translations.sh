#!/usr/bin/env bash
# Brings resources/translations/korvane_en.ts up to date with the tr() texts of the library and the
# hosts: new texts come in unfinished (the translation check then fails until they are translated),
# texts no longer in the sources leave. Russian is the source language.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
ts=${1:-$root/resources/translations/korvane_en.ts}
cd "$root"
lupdate -silent -no-obsolete -locations none -source-language ru -target-language en \
    Model Loaders Savers Settings Calc Views apps -ts "$ts"
