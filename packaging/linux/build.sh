#!/usr/bin/env bash
# Builds Marlowick and packs it, with its start script, desktop entry and icon, into
# dist/Marlowick-VERSION-linux-x86_64.tar.gz. Qt is the system's own (RUN_PACKAGES).
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
. packaging/common.sh
need "${BUILD_PACKAGES[@]}"
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"

# A folder that is set up for the tests too stays so.
[ -e build/release/CMakeCache.txt ] || set -- -DMARLOWICK_TESTS=OFF -DMARLOWICK_BENCH=OFF "$@"
cmake --preset release "$@" >/dev/null
cmake --build --preset release --target Marlowick

name=Marlowick-$VERSION-linux-x86_64
folder=build/package-linux/Marlowick-$VERSION
rm -rf build/package-linux
mkdir -p "$folder" dist
strip -o "$folder/Marlowick" build/release/bin/Marlowick
cp packaging/linux/marlowick packaging/linux/marlowick.desktop "$folder/"
cp src/resources/icons/marlowick-256.png "$folder/marlowick.png"
add_documents "$folder"
set_times "$folder"
tar -C build/package-linux --sort=name --owner=0 --group=0 --numeric-owner -cf - \
    "Marlowick-$VERSION" | gzip -9n >"dist/$name.tar.gz"
echo "dist/$name.tar.gz: $(stat -c %s "dist/$name.tar.gz") bytes"
