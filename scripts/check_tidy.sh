#!/usr/bin/env bash
# check_tidy.sh BUILD: fails on any finding of clang-tidy in src, tools and bench, in the files that
# BUILD compiles.
set -euo pipefail
cd "$(dirname "$0")/.."
files=$(git ls-files 'src/*.cpp' 'tools/*.cpp' 'bench/*.cpp')
for file in $files; do
    if grep -qF "/$file\"" "$1/compile_commands.json"; then
        echo "$file"
    fi
done | xargs -P "$(nproc)" -n 4 clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option \
    -p "$1" 2>&1 |
    { grep -vE '^[0-9]+ warnings? generated\.$|^Suppressed|^Use -header-filter' || true; }
