# Sourced by the scripts: what has to be installed, and how.

BUILD_PACKAGES=(build-essential cmake ninja-build ccache qt6-base-dev qt6-base-dev-tools
    nlohmann-json3-dev fonts-dejavu-core)
# What the Linux package needs to run.
RUN_PACKAGES=(libqt6widgets6 fonts-dejavu-core)
TEST_PACKAGES=(libgtest-dev libgmock-dev libbenchmark-dev strace)
CHECK_PACKAGES=(git clang-format clang-tidy cppcheck)
COVERAGE_PACKAGES=(gcovr)
VIRTUAL_DISPLAY_PACKAGES=(xvfb xauth openbox)
# For the Windows program, and for running it under Wine.
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix xz-utils zip)
WINE_PACKAGES=(wine64 fonts-wine imagemagick unzip xdotool)

# need PACKAGE...: installs those of the packages that are missing.
need() {
    local missing=() package
    for package in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing and can't be installed without root: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -q
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q \
        --no-install-recommends "${missing[@]}"
}
