#!/usr/bin/env bash
# check.sh [TOUR]: builds the Windows program, its package and its tests, and proves them under Wine
# on a virtual display (under_wine.sh). TOUR is the folder of the same tour on this system: its games
# must have come out the same, byte for byte.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${WINDOWS_PACKAGES[@]}" "${WINE_PACKAGES[@]}" \
    "${VIRTUAL_DISPLAY_PACKAGES[@]}"
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"

packaging/windows/qt.sh
cmake --preset windows -DMARLOWICK_TESTS=ON -DMARLOWICK_WERROR=ON >/dev/null
cmake --build --preset windows
packaging/windows/build.sh

# Everything else that the program loads has to be part of Windows 10.
libraries=$(x86_64-w64-mingw32-objdump -p build/package-windows/*/Marlowick.exe |
    sed -n 's/.*DLL Name: //p' | tr '[:upper:]' '[:lower:]')
grep -qx kernel32.dll <<<"$libraries"
strangers=$(grep -vxFf packaging/windows/system_libraries.txt <<<"$libraries" || true)
if [ -n "$strangers" ]; then
    echo "Marlowick.exe needs what Windows doesn't have: $strangers" >&2
    exit 1
fi

# Large enough for every window at twice its size.
exec xvfb-run -a -s "-screen 0 2560x2048x24" packaging/windows/under_wine.sh "$@"
