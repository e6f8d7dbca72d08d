#!/usr/bin/env bash
# run.sh [SECONDS]: builds the fuzz targets with clang and runs each for so many seconds, 60 unless
# told otherwise, from the seeds of the sample game and what earlier runs have found. An input that a
# target fails on stays in build/fuzz/crashes.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need clang
seconds=${1:-60}
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzz_targets
mkdir -p build/fuzz/crashes
for target in build/fuzz/bin/fuzz_*; do
    name=${target##*/fuzz_}
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    echo "== $name, $seconds s"
    "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -max_len=65536 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/crashes/$name-" \
        "$corpus" "build/fuzz/fuzz/seeds/$name"
done
