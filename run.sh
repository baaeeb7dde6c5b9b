#!/usr/bin/env bash
# Installs what is missing, builds the programs and starts the station in the folder try-out, with an
# indicator on port 1. Without a display it walks through the station and the office by itself.
set -euo pipefail
cd "$(dirname "$0")"

usage() {
    cat <<'END'
./run.sh [options]

  With a display: starts the station in ./try-out, with an indicator whose trucks drive on and off.
  What you enter there is kept for the next start; your own settings are not touched. The office
  starts with: try-out/quillane-office --station try-out

  Without one: starts a display (Xvfb) and goes with real keys, in ./try-out/walk, through the
  bench and the whole life of a weighment: saved, printed, found, changed, printed again, removed.
  Then it starts a mill without sample rows: lists, line and a user in the office, weighments by
  this user, the day book with their sums. It leaves pictures of every screen, the slips as PDF and
  the rows stored at each stage in ./try-out/walk/out and ./try-out/walk/new-mill/out. The exit code
  is 0 only when all of it went well.

  --walk       do the walk on its own Xvfb, also if there is a display
  --fresh      start from an empty try-out folder
  --no-setup   do not look for missing packages
  --no-build   use the program as it was built last
  --help       this text
END
}

setup=yes
build=yes
fresh=no
walk=no
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || walk=yes
for option in "$@"; do
    case $option in
    --walk) walk=yes ;;
    --fresh) fresh=yes ;;
    --no-setup) setup=no ;;
    --no-build) build=no ;;
    --help | -h) usage && exit 0 ;;
    *) echo "run.sh: unknown option $option (see --help)" >&2 && exit 2 ;;
    esac
done

if [ $setup = yes ]; then
    if [ $walk = yes ]; then tools/setup/packages.sh build walk; else tools/setup/packages.sh build; fi
fi
if [ $build = yes ]; then
    . tools/setup/build.sh
    configure release -DQUILLANE_TESTS=OFF
    cmake --build build/release --target quillane quillane-office
fi

. tools/try-out/folder.sh
if [ $walk = yes ]; then
    rm -rf try-out/walk
    prepare_folder "$PWD/try-out/walk" build/release
    exec tools/try-out/walk "$PWD/try-out/walk"
fi

[ $fresh = no ] || rm -rf try-out
prepare_folder "$PWD/try-out" build/release
start_indicator "$PWD/try-out"
trap stop_indicator EXIT
echo "The station runs in $PWD/try-out; its indicator is on port 1."
XDG_CONFIG_HOME=$PWD/try-out/settings try-out/quillane --station "$PWD/try-out"
