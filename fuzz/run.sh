#!/usr/bin/env bash
# run.sh [SECONDS [TARGET...]]: builds the fuzz targets with clang and runs each, or those that are
# named, for so many seconds, 60 unless told otherwise, from the seeds of the sample game, those of
# fuzz/seeds, the corpus that is kept in fuzz/corpus and what earlier runs have found. An input that a
# target fails on stays in build/fuzz/crashes. keep.sh puts what was found into the kept corpus.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need clang libclang-rt-dev
seconds=${1:-60}
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzz_targets
mkdir -p build/fuzz/crashes
names=("${@:2}")
if [ ${#names[@]} -eq 0 ]; then
    names=(build/fuzz/bin/fuzz_*)
    names=("${names[@]##*/fuzz_}")
fi
for name in "${names[@]}"; do
    target=build/fuzz/bin/fuzz_$name
    seeds=()
    for folder in "build/fuzz/fuzz/seeds/$name" "fuzz/seeds/$name"; do
        [ -d "$folder" ] && seeds+=("$folder")
    done
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    if [ -f "fuzz/corpus/$name.tar.gz" ]; then
        tar -xzf "fuzz/corpus/$name.tar.gz" -C "$corpus"
    fi
    echo "== $name, $seconds s"
    "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -max_len=65536 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/crashes/$name-" \
        "$corpus" "${seeds[@]}"
done
