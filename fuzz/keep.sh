#!/usr/bin/env bash
# keep.sh [TARGET...]: takes out of what run.sh has found for each target, or for those that are named,
# the fewest inputs that reach as much, and keeps them in fuzz/corpus, from where every later run
# begins. Slow inputs aren't kept.
set -euo pipefail
cd "$(dirname "$0")/.."
largest=65536
names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    names=(build/fuzz/bin/fuzz_*)
    names=("${names[@]##*/fuzz_}")
fi
mkdir -p fuzz/corpus
for name in "${names[@]}"; do
    found=build/fuzz/corpus/$name
    kept=build/fuzz/kept/$name
    rm -rf "$kept"
    mkdir -p "$kept"
    echo "== $name"
    "build/fuzz/bin/fuzz_$name" -merge=1 -timeout=10 -max_len=$largest "$kept" "$found" 2>&1 | tail -1
    # The same inputs make the same archive.
    tar --sort=name --mtime=@0 --owner=0 --group=0 --numeric-owner -C "$kept" -c . |
        gzip -9n >"fuzz/corpus/$name.tar.gz"
done
