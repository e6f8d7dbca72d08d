#!/usr/bin/env bash
# Installs what is missing, builds the program, makes the sample game if no game is known, and opens
# the program. Where there is no display, a guided tour through the same windows runs on a virtual
# one instead; its pictures lie in build/tour.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh
need "${BUILD_PACKAGES[@]}"
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"
cmake --preset release >/dev/null
cmake --build --preset release --target Marlowick make_sample_game sims_location tour
bin=build/release/bin

if ! QT_QPA_PLATFORM=offscreen "$bin/sims_location" >/dev/null; then
    if [ ! -e build/sample-game/Sims.exe ]; then
        echo "No game is known yet: making a sample game in build/sample-game."
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
