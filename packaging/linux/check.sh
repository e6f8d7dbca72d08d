#!/usr/bin/env bash
# Builds the Linux package and tries what is in it: the libraries it asks for come with RUN_PACKAGES,
# its menu entry leads to it, and it shows its first window.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
. packaging/common.sh
need "${RUN_PACKAGES[@]}" "${VIRTUAL_DISPLAY_PACKAGES[@]}" xdotool python3

packaging/linux/build.sh

# A folder with everything in its name that a shell or a desktop entry could stumble over.
folder="build/linux program/a \$HOME & \"b\" \`c\` 100%"
rm -rf "build/linux program"
mkdir -p "$folder"
tar -C "$folder" -xzf "dist/Marlowick-$VERSION-linux-x86_64.tar.gz"
folder=$PWD/$folder/Marlowick-$VERSION

allowed=$(apt-cache depends --recurse --installed --no-recommends --no-suggests --no-conflicts \
    --no-breaks --no-replaces --no-enhances "${RUN_PACKAGES[@]}" | sed -n 's/^\([a-z0-9]\)/\1/p')
for library in $(ldd "$folder/Marlowick" | sed -n 's/.* => \(\/[^ ]*\) .*/\1/p'); do
    # The name alone: the folder may be a link to the one that the package knows.
    owners=$(dpkg-query -S "*/$(basename "$(readlink -f "$library")")" | cut -d: -f1 | sort -u)
    if ! grep -qxF "$owners" < <(cut -d: -f1 <<<"$allowed"); then
        echo "Marlowick asks for $library of $owners, which nothing installs" >&2
        exit 1
    fi
done
echo "Every library comes with: ${RUN_PACKAGES[*]}"

entry=$(XDG_DATA_HOME="$PWD/build/linux program/share" "$folder/marlowick" --menu-entry)
python3 - "$entry" "$folder/marlowick" <<'END'
import re
import sys
entry = dict(line.rstrip("\n").split("=", 1) for line in open(sys.argv[1]) if "=" in line)
# A desktop reads a text's escapes first, then those within the quotes, then the percent signs.
text = entry["Exec"].replace("\\\\", "\\")
started = re.sub(r"\\(.)", r"\1", text[1:-1]).replace("%%", "%")
assert text[0] == text[-1] == '"' and started == sys.argv[2], (started, sys.argv[2])
END
echo "The menu entry leads to the program"

# Nothing but the first window is looked at: the settings aren't anybody's.
HOME="$PWD/build/linux program" XDG_CONFIG_HOME= xvfb-run -a sh -c '
    "$1/marlowick" &
    program=$!
    timeout 60 xdotool search --sync --onlyvisible --name "^Marlowick - Version $2\$" >/dev/null
    found=$?
    kill "$program"
    exit "$found"' check "$folder" "$VERSION"
echo "The packed program shows its first window"
