#!/usr/bin/env bash
# qt.sh: puts a static Qt for Windows into build/qt-windows/qt, unless it is there. A ready-made one
# beside the project's folder is taken if there is one; else Qt is built from the system's own
# source package, which takes ten to twenty minutes. MARLOWICK_QT_FROM_SOURCE=1 builds it in any case.
set -euo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
. scripts/packages.sh
need "${BUILD_PACKAGES[@]}" "${WINDOWS_PACKAGES[@]}"

folder=$root/build/qt-windows
ready=${MARLOWICK_READY_QT:-$root/../shared/windows/qt-6.4.2-mingw64-static.tar.xz}

# The folder gets its name when it is whole.
settle() {
    mv "$1" "$folder/qt"
    echo "Qt for Windows: $2"
}

unpack() {
    rm -rf "$folder/unpacked"
    mkdir -p "$folder/unpacked"
    tar -C "$folder/unpacked" -xf "$ready"
    settle "$folder"/unpacked/qt-* "unpacked from $ready"
    rm -rf "$folder/unpacked"
}

# An apt of our own, with the system's package sources as sources of source packages: nothing of
# the machine's settings changes, and no rights are needed.
fetch_source() {
    local apt=$folder/apt
    rm -rf "$apt" "$folder/source"
    mkdir -p "$apt/sources.list.d" "$apt/lists/partial" "$apt/archives/partial" "$folder/source"
    if [ -e /etc/apt/sources.list ]; then
        sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$apt/sources.list"
    fi
    local file
    for file in /etc/apt/sources.list.d/*.list; do
        [ -e "$file" ] && sed -n 's/^deb /deb-src /p' "$file" >"$apt/sources.list.d/${file##*/}"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -e "$file" ] &&
            sed 's/^Types:.*/Types: deb-src/' "$file" >"$apt/sources.list.d/${file##*/}"
    done
    local options=(-q -o "Dir::Etc::sourcelist=$apt/sources.list"
        -o "Dir::Etc::sourceparts=$apt/sources.list.d" -o "Dir::State::lists=$apt/lists"
        -o "Dir::Cache=$apt" -o "APT::Sandbox::User=$(id -un)")
    # A source that can't be reached is no matter as long as the package is found.
    apt-get "${options[@]}" update || true
    (cd "$folder/source" && apt-get "${options[@]}" source qt6-base)
}

build() {
    local off=(opengl vulkan sql network dbus printsupport xml concurrent tabletevent direct2d
        directwrite3 icu glib zstd pdf pkg_config system_zlib system_pcre2 system_freetype
        system_png system_harfbuzz system_jpeg)
    local features=() name
    for name in "${off[@]}"; do
        features+=("-DFEATURE_$name=OFF")
    done
    fetch_source
    cmake -S "$folder"/source/qt6-base-*/ -B "$folder/build" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-toolchain.cmake" \
        -DCMAKE_INSTALL_PREFIX="$folder/installed" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache \
        -DBUILD_SHARED_LIBS=OFF -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DINPUT_opengl=no \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF "${features[@]}"
    cmake --build "$folder/build"
    cmake --install "$folder/build" >/dev/null
    touch "$folder/installed/built-from-source"
    settle "$folder/installed" "built from source"
    rm -rf "$folder/build" "$folder/source" "$folder/apt"
}

if [ -e "$folder/qt/lib/libQt6Widgets.a" ] &&
    { [ -z "${MARLOWICK_QT_FROM_SOURCE:-}" ] || [ -e "$folder/qt/built-from-source" ]; }; then
    exit 0
fi
mkdir -p "$folder"
rm -rf "$folder/qt"
if [ -e "$ready" ] && [ -z "${MARLOWICK_QT_FROM_SOURCE:-}" ]; then
    unpack
else
    build
fi
