#!/usr/bin/env bash
# coverage.sh [LEAST]: builds the tests of what has no Qt with counters in build/coverage, runs them,
# and prints how many of its lines they reach; build/coverage/lines.txt has every file, and which lines
# aren't reached. Fails below LEAST percent, 98 if left out. Windows, widgets and the start have Qt and
# don't count; nor do the files of another system, which aren't built.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${COVERAGE_PACKAGES[@]}"
least=${1:-98}
build=build/coverage
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"

tests=()
for folder in foundation safety far browser system iff mesh preview catalogue wardrobe; do
    tests+=("test_$folder")
done
# Nobody debugs this build, and without a debugger's tables it is made in less time.
cmake --preset release -B "$build" -DMARLOWICK_TESTS=ON -DMARLOWICK_BENCH=OFF \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O0 --coverage" >/dev/null
cmake --build "$build" --target "${tests[@]}" >"$build/build.log" ||
    { tail -n 40 "$build/build.log"; exit 1; }

# What was counted before is of other sources. The longest sweeps walk lines that others walk too.
find "$build" -name '*.gcda' -delete
run_one() {
    "$1/bin/$2" --gtest_brief=1 --gtest_filter='-HistoryFaultsTest.*:LargeFarTest.*' \
        >"$1/$2.log" 2>&1 || { tail -n 40 "$1/$2.log"; return 1; }
}
export -f run_one
printf '%s\n' "${tests[@]}" | xargs -P "$(nproc)" -I{} bash -c 'run_one "$@"' run_one "$build" {}

# Without -r each of the system's own headers would be reported for each file that includes it.
gcovr --root . --gcov-executable "gcov -r -s '$PWD'" -j "$(nproc)" --filter src/ \
    --exclude 'src/(start|widgets)/' --exclude 'src/main\.cpp' --exclude '.*/frm[^/]*' \
    --exclude '.*_view\.(cpp|h)' --sort-percentage --txt "$build/lines.txt" --print-summary \
    --fail-under-line "$least" "$build" >"$build/summary.txt" || failed=$?
grep '^lines:' "$build/summary.txt"
if [ -n "${failed:-}" ]; then
    echo "Fewer than $least % of the lines of what has no Qt are reached; see $build/lines.txt" >&2
    exit "$failed"
fi
