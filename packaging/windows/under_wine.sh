#!/usr/bin/env bash
# under_wine.sh [TOUR]: runs what check.sh has built on the display that is there: every test, the
# tour through both games, and the packed program itself. Pictures are left in build/tour-windows and
# build/wine-program.
set -euo pipefail
cd "$(dirname "$0")/../.."
. packaging/common.sh
wine=$PWD/packaging/windows/wine.sh
bin=build/windows/bin

openbox >/dev/null 2>&1 &
manager=$!
# The server outlives the last program, and with it Wine's desktop on the display.
finish() {
    "$wine" wineboot -k >/dev/null 2>&1 || true
    local server
    server=$(command -v wineserver || echo /usr/lib/wine/wineserver)
    WINEPREFIX=$PWD/build/wine timeout 20 "$server" -w || true
    kill "$manager" 2>/dev/null || true
}
trap finish EXIT

echo "-- a fresh home for Wine"
rm -rf build/wine
"$wine" wineboot -i >/dev/null 2>&1

echo "-- every test"
ctest --test-dir build/windows -j "$(nproc)" --output-on-failure --no-tests=error

echo "-- the tour"
rm -rf build/tour-windows
mkdir -p build/tour-windows
"$wine" "$bin/make_sample_game.exe" build/tour-windows/game
"$wine" "$bin/make_sample_game.exe" --legacy build/tour-windows/home/Games/sims
timeout 900 "$wine" "$bin/tour.exe" build/tour-windows
timeout 900 "$wine" "$bin/tour.exe" --legacy build/tour-windows
executable=$(find build/tour-windows/game build/tour-windows/home -type f -perm /111 ! -iname "*.exe")
if [ -n "$executable" ]; then
    echo "These files became executable: $executable" >&2
    exit 1
fi
if [ $# -gt 0 ]; then
    diff -r "$1/game" build/tour-windows/game
    diff -r "$1/home" build/tour-windows/home
    echo "Both games came out as on this system, byte for byte."
fi

# picture_of TITLE NAME: waits for the window and leaves a picture of the screen. A search fails too
# where another window goes away under it, so it is made again until the time is up.
picture_of() {
    local tries=0
    until xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; do
        tries=$((tries + 1))
        if [ "$tries" -gt 240 ]; then
            echo "The window \"$1\" never came." >&2
            import -window root build/wine-program/failure.png
            exit 1
        fi
        sleep 0.25
    done
    sleep 1
    import -window root "build/wine-program/$2.png"
    echo "   $1"
}

echo "-- the packed program"
rm -rf build/wine-program
mkdir -p build/wine-program
unzip -q "dist/Marlowick-$VERSION-windows-x64.zip" -d build/wine-program
"$wine" "$bin/sims_location.exe" build/tour-windows/game >/dev/null
timeout 300 "$wine" "build/wine-program/Marlowick-$VERSION/Marlowick.exe" &
program=$!
picture_of "Marlowick - Version $VERSION" title
xdotool key Return
picture_of "Marlowick - Version $VERSION - by Tolbert Quay" main-window
xdotool key alt+F4
picture_of "Confirm Action" exit-question
xdotool key Return
wait "$program"
echo "It ended as it should."
