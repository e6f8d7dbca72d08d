#!/usr/bin/env bash
# run.sh [--legacy]: installs what is missing, builds the program, makes the sample game if the program
# would find no game, and opens the program. With --legacy it opens a sample of the Legacy Collection,
# whatever game there is. Where there is no display, a guided tour through the same windows runs on a
# virtual one instead, on samples of both games; its pictures lie in build/tour.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh
need "${BUILD_PACKAGES[@]}"
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"
cmake --preset release >/dev/null
cmake --build --preset release --target Marlowick make_sample_game sims_location tour
bin=build/release/bin

if [ "${1:-}" = --legacy ]; then
    prefix=$PWD/build/sample-legacy
    game="$prefix/drive_c/Program Files/EA Games/The Sims Legacy"
    [ -e "$game/Sims.exe" ] || "$bin/make_sample_game" --legacy "$prefix"
    QT_QPA_PLATFORM=offscreen "$bin/sims_location" "$game"
elif ! QT_QPA_PLATFORM=offscreen "$bin/sims_location" >/dev/null; then
    if [ ! -e build/sample-game/Sims.exe ]; then
        echo "No game is found: making a sample game in build/sample-game."
        "$bin/make_sample_game" build/sample-game
    fi
    QT_QPA_PLATFORM=offscreen "$bin/sims_location" "$PWD/build/sample-game"
fi

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$bin/Marlowick"
fi

echo "There is no display: the tour runs on a virtual one."
need "${VIRTUAL_DISPLAY_PACKAGES[@]}"
exec scripts/tour.sh "$bin" build/tour
