#!/usr/bin/env bash
# Installs missing Debian packages that the project needs.
#
#   tools/setup/packages.sh build          to build and run the station
#   tools/setup/packages.sh build walk     and to try it out without a display
#   tools/setup/packages.sh build test     and to run every test
#   tools/setup/packages.sh checks bench   format and lint checks, benchmarks
#   tools/setup/packages.sh build package  to build the Debian package
#   tools/setup/packages.sh trial          to try it out in a bare system
#
# Prints nothing and needs no rights if everything is installed.
set -euo pipefail

# One list for each purpose. README.md describes the libraries.
build=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-base-private-dev qt6-serialport-dev
    libgl-dev libxcb1-dev libsqlite3-dev unixodbc-dev libsodium-dev libxlsxwriter-dev python3
    fontconfig fonts-liberation fonts-dejavu-core fonts-nafees)
walk=(xvfb xauth xdotool x11-utils openbox imagemagick poppler-utils)
# A server that the tests start themselves, and its driver.
servers=(postgresql odbc-postgresql)
test=(libgtest-dev "${walk[@]}" sqlite3 procps "${servers[@]}" tdsodbc)
checks=(git clang-format clang-tidy)
package=(git dpkg-dev debhelper cmark-gfm lintian)
# A minimal system in which the package is tested.
trial=(mmdebstrap)
bench=(libbenchmark-dev libxcb1-dev xvfb "${servers[@]}" tdsodbc)

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing_packages() {
    local group package
    for group in "$@"; do
        local -n packages=$group
        for package in "${packages[@]}"; do
            is_installed "$package" || printf '%s\n' "$package"
        done
    done | sort -u
}

# Prints the command prefix for installing with root rights; fails if there is none.
installer_prefix() {
    if [ "$(id -u)" = 0 ]; then
        echo "env DEBIAN_FRONTEND=noninteractive"
    elif command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
        echo "sudo env DEBIAN_FRONTEND=noninteractive"
    else
        return 1
    fi
}

tell_by_hand() {
    echo "Missing packages: $*" >&2
    echo "$reason" >&2
    echo "Install them with:  sudo apt-get install --no-install-recommends $*" >&2
    exit 1
}

for group in "$@"; do
    case $group in
    build | walk | test | checks | bench | package | trial) ;;
    *)
        echo "$0: unknown list: $group (build, walk, test, checks, bench, package, trial)" >&2
        exit 2
        ;;
    esac
done

if ! command -v dpkg-query >/dev/null; then
    echo "This is not a Debian system: packages are not checked. $0 lists them." >&2
    exit 0
fi

mapfile -t missing < <(missing_packages "$@")
[ ${#missing[@]} -gt 0 ] || exit 0

reason="They cannot be installed from here: neither root nor sudo."
prefix=$(installer_prefix) || tell_by_hand "${missing[@]}"

echo "Installing: ${missing[*]}"
reason="Installing them failed; see above."
$prefix apt-get -q update </dev/null &&
    $prefix apt-get -q install --yes --no-install-recommends "${missing[@]}" </dev/null ||
    tell_by_hand "${missing[@]}"
