#!/usr/bin/env bash
# check_cppcheck.sh BUILD: fails on any finding of cppcheck.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p "$1/cppcheck"
cppcheck --quiet --error-exitcode=1 --std=c++20 --language=c++ -j "$(nproc)" \
    --enable=warning,performance,portability --inline-suppr --library=qt \
    --suppress=missingIncludeSystem --cppcheck-build-dir="$1/cppcheck" \
    -I src -I "$1/generated" src tools bench
