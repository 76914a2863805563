#!/usr/bin/env bash
# Runs one libFuzzer target for a bounded time on a copy of its seed corpus, so that the
# corpus in the tree is never written to. A failing input is kept beside the binary, in
# <binary>-artifacts/, and printed, so that it can become a test and a seed.
# Usage: run-fuzzer.sh BINARY SEED_DIR SECONDS [MAX_LEN]
set -euo pipefail
binary=$1 seeds=$2 seconds=$3 max_len=${4:-65536}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
artifacts="$binary-artifacts"
mkdir -p "$work/corpus" "$artifacts"
touch "$work/started"
status=0
"$binary" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len="$max_len" \
    -artifact_prefix="$artifacts/" -print_final_stats=1 "$work/corpus" "$seeds" || status=$?
if [ "$status" -ne 0 ]; then
    find "$artifacts" -type f -newer "$work/started" | while read -r input; do
        echo "failing input kept: $input ($(stat -c %s "$input") bytes)"
        od -A d -t x1z -v "$input" | head -n 64
    done
fi
exit "$status"
