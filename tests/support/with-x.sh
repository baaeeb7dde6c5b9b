#!/bin/sh
# Runs a command on a new X server, on a free display:
#
#     with-x.sh [--wm] [--size 1280x800] command [argument...]
#
# With --wm the window manager openbox runs on it. The server and the window manager are stopped
# when the command has ended, and its exit code is returned.
set -eu

wm=no
size=1280x800
while [ $# -gt 0 ]; do
    case $1 in
    --wm) wm=yes; shift ;;
    --size) size=$2; shift 2 ;;
    *) break ;;
    esac
done

folder=$(mktemp -d)
server=
manager=
stop() {
    [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$folder"
}
trap stop EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# Waits up to ten seconds until a command succeeds.
wait_until() {
    tries=0
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        if [ "$tries" -gt 200 ]; then
            echo "with-x.sh: the wait has timed out: $*" >&2
            cat "$folder"/*.log >&2
            exit 1
        fi
        sleep 0.05
    done
}

# Without auto-repeat (-r): on a busy machine a key may be held down for long. Without a reset after
# the last client (-noreset): it would close the connection that the next client has just opened.
: >"$folder/display"
Xvfb -r -noreset -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$folder/display" \
    2>"$folder/server.log" &
server=$!
wait_until grep -q '[0-9]' "$folder/display"
DISPLAY=:$(cat "$folder/display")
export DISPLAY
if [ "$wm" = yes ]; then
    openbox --sm-disable >"$folder/manager.log" 2>&1 &
    manager=$!
    # The manager owns this property of the root window as soon as it is active.
    wait_until sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
fi

code=0
QT_QPA_PLATFORM=xcb "$@" || code=$?
exit "$code"
