#!/usr/bin/env bash
# wine.sh PROGRAM [ARGUMENT...]: runs a Windows program under Wine, in a prefix of the build folder.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
export WINEPREFIX=$root/build/wine
# Neither messages of Wine's own nor offers to download what it lacks.
export WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe="
mkdir -p "$WINEPREFIX"
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
exec "$wine" "$@"
