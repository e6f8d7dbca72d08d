#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test.
# Arguments go to CMake, for example -DMARLOWICK_WERROR=ON.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh
need "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"
cmake --preset release -DMARLOWICK_TESTS=ON -DMARLOWICK_BENCH=ON "$@"
cmake --build --preset release
exec ctest --test-dir build/release -j "$(nproc)" --output-on-failure --no-tests=error --timeout 300
