#!/usr/bin/env bash
# check_tidy.sh BUILD: fails on any finding of clang-tidy in src, tools and bench.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files 'src/*.cpp' 'tools/*.cpp' 'bench/*.cpp' | grep -v '_windows\.cpp$' |
    xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p "$1" 2>&1 |
    { grep -vE '^[0-9]+ warnings? generated\.$|^Suppressed|^Use -header-filter' || true; }
