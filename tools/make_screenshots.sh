#!/usr/bin/env bash
# make_screenshots.sh [BIN]: makes the pictures of the guide anew, out of the tour through the real
# windows. BIN is the folder with the built programs, build/release/bin unless told otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need "${VIRTUAL_DISPLAY_PACKAGES[@]}" imagemagick
bin=${1:-build/release/bin}
# The folder's name shows in some of the pictures.
folder=${TMPDIR:-/tmp}/Marlowick
trap 'rm -rf "$folder"' EXIT
scripts/tour.sh "$bin" "$folder"

# Each picture, and the step of the tour that shows it; those of the Legacy Collection have a road of
# their own. A palette makes the files small.
while read -r picture step road; do
    convert "$folder/$road/windows/$step.png" -strip +dither -colors 256 \
        -define png:compression-level=9 -define png:compression-filter=0 \
        "PNG8:docs/pictures/$picture.png"
done <<'END'
title title
found-game players-own-neighborhood legacy
set-path games-before-the-classic-game legacy
game-runs save-anyway legacy
main-window a-sim
wardrobe wardrobe
chooser a-skin
new-clothes new-clothes
worn turned
flat-skin flat
save-question save-question
hands new-hand
hand-chooser a-hand
ensembles ensemble-chosen
pet new-coat
fix-question fix-question
earlier-versions earlier-versions
archives added-bitmap
open-archive picked-archive
error-report error-report
END
ls -l docs/pictures
