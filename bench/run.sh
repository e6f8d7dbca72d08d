#!/usr/bin/env bash
# run.sh [--small]: builds the benchmarks, makes their data in a temporary folder, and prints each routine
# beside the least that the machine could do for the same work, how its cost grows, and the memory
# that it takes. That is an hour, nearly all of it the repairs of thousands of sims, each of which is
# flushed to the disk. The table also goes to build/bench/ratios.json, the benchmarks without such a
# floor to build/bench/others.json. --small runs each once on small data: it shows that they still
# work, and its figures mean nothing.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need "${BUILD_PACKAGES[@]}" libbenchmark-dev
small=()
if [ "${1:-}" = --small ]; then small=(--small); fi
cmake --preset release -DMARLOWICK_BENCH=ON >/dev/null
cmake --build --preset release --target bench_ratios bench_marlowick
bin=build/release/bin
out=build/bench
mkdir -p "$out"
json() { echo "--benchmark_out=$out/$1.json" --benchmark_out_format=json; }

# shellcheck disable=SC2046
"$bin/bench_ratios" "${small[@]}" $(json ratios)
echo
"$bin/bench_ratios" "${small[@]}" --growth
echo
"$bin/bench_ratios" "${small[@]}" --memory
echo
others=()
# Without what takes minutes.
if [ ${#small[@]} -gt 0 ]; then
    others=(--benchmark_min_time=0.001 '--benchmark_filter=-/(1000|5000|10000|262144000)')
fi
# shellcheck disable=SC2046
"$bin/bench_marlowick" "${others[@]}" $(json others)
