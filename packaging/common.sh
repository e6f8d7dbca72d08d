# Sourced by the packaging scripts, in the project's folder: what goes beside the program.

VERSION=$(sed -n 's/^project(Marlowick VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

# Files of a package bear the time of the last commit, so that the same source gives the same bytes.
SOURCE_TIME=$(git log -1 --format=%ct 2>/dev/null || date +%s)

# add_documents FOLDER: README, licence and user guide, with their pictures.
add_documents() {
    cp README.md LICENSE "$1/"
    mkdir -p "$1/docs/pictures"
    if [ -e docs/guide.md ]; then
        cp docs/guide.md "$1/docs/"
    fi
    local picture
    for picture in $(cat README.md docs/guide.md 2>/dev/null | grep -o 'pictures/[A-Za-z0-9_.-]*' | sort -u); do
        cp "docs/$picture" "$1/docs/pictures/"
    done
}

# set_times FOLDER: gives all files in it the time of the source.
set_times() {
    find "$1" -exec touch -d "@$SOURCE_TIME" {} +
}
