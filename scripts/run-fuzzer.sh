#!/usr/bin/env bash
# Runs one libFuzzer target for a bounded time on a copy of its seed corpus, so that the
# corpus in the tree is never written to. Usage: run-fuzzer.sh BINARY SEED_DIR SECONDS
set -euo pipefail
binary=$1 seeds=$2 seconds=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/corpus" "$work/artifacts"
"$binary" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=65536 \
    -artifact_prefix="$work/artifacts/" -print_final_stats=1 "$work/corpus" "$seeds"
