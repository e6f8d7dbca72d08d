#!/usr/bin/env bash
# coverage.sh [LEAST]: builds the tests with counters in build/coverage, runs them, and reports which
# lines of what has no Qt they reach. Fails below LEAST percent, 98 unless told otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" gcovr
least=${1:-98}
cmake --preset release -B build/coverage -DMARLOWICK_TESTS=ON -DMARLOWICK_BENCH=OFF \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS="--coverage -O0 -g1" >/dev/null
cmake --build build/coverage
find build/coverage -name '*.gcda' -delete
ctest --test-dir build/coverage -j "$(nproc)" --output-on-failure --no-tests=error --timeout 600 \
    >build/coverage/tests.log || { tail -40 build/coverage/tests.log; exit 1; }
# Windows and widgets have Qt, and so has the start.
gcovr --root . --object-directory build/coverage --filter src/ \
    --exclude 'src/(start|widgets)/' --exclude 'src/main\.cpp' --exclude '.*/frm[^/]*' \
    --exclude '.*_view\.(cpp|h)' --exclude-throw-branches --sort-percentage \
    --txt build/coverage/lines.txt --fail-under-line "$least" ||
    { cat build/coverage/lines.txt; exit 1; }
tail -n 3 build/coverage/lines.txt
