#!/usr/bin/env bash
# tour.sh BIN FOLDER: walks through the real windows on a virtual display, first on a fresh sample of
# the classic game, then on one of the Legacy Collection, and leaves a picture of every step in FOLDER
# and FOLDER/legacy. Exits non-zero if a file isn't what it should be.
set -euo pipefail
bin=$1
folder=$2
rm -rf "$folder"
mkdir -p "$folder"
"$bin/make_sample_game" "$folder/game"
"$bin/make_sample_game" --legacy "$folder/home/Games/sims"
exec xvfb-run -a -s "-screen 0 1280x1024x24" sh -c '
    openbox >/dev/null 2>&1 &
    manager=$!
    sleep 1
    code=0
    "$1" "$2" && "$1" --legacy "$2" || code=$?
    kill "$manager" 2>/dev/null || true
    exit "$code"' tour "$bin/tour" "$folder"
