#!/usr/bin/env bash
# Builds Marlowick.exe and packs it, with all that belongs to it, into
# dist/Marlowick-VERSION-windows-x64.zip. It runs on Debian 12 and installs what is missing.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
. packaging/common.sh
need "${BUILD_PACKAGES[@]}" "${WINDOWS_PACKAGES[@]}"
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"

packaging/windows/qt.sh

# A folder that is set up for the tests too stays so.
[ -e build/windows/CMakeCache.txt ] || set -- -DMARLOWICK_TESTS=OFF "$@"
cmake --preset windows "$@" >/dev/null
cmake --build --preset windows --target Marlowick

name=Marlowick-$VERSION-windows-x64
folder=build/package-windows/Marlowick-$VERSION
rm -rf build/package-windows
mkdir -p "$folder" dist
x86_64-w64-mingw32-strip -o "$folder/Marlowick.exe" build/windows/bin/Marlowick.exe
add_documents "$folder"
cp packaging/windows/THIRD-PARTY.md "$folder/"
set_times "$folder"
rm -f "dist/$name.zip"
(cd build/package-windows && find "Marlowick-$VERSION" | LC_ALL=C sort | TZ=UTC zip -q -9 -X "../../dist/$name.zip" -@)
echo "dist/$name.zip: $(stat -c %s "dist/$name.zip") bytes"
