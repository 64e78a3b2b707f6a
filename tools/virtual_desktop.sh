#!/bin/bash
# virtual_desktop.sh COMMAND...: runs the command on a screen of its own (1280 by 1024) with a
# window manager and a session bus, and ends all of them with it.
set -eu

die() {
    echo "virtual_desktop: $*" >&2
    exit 1
}

# await SECONDS COMMAND...: until the command succeeds.
await() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || return 1
        read -rt 0.05 <> <(:) || true
    done
}

if [ "${1:-}" != --inside ]; then
    command -v dbus-run-session >/dev/null || die "dbus-run-session is missing"
    # The services of the session keep their sockets here; it must belong to this user alone.
    XDG_RUNTIME_DIR=$(mktemp -d)
    export XDG_RUNTIME_DIR
    # The bus and what it starts are talkative; only the command's own words are wanted.
    exec dbus-run-session -- "$0" --inside "$@" 8>&1 9>&2 >/dev/null 2>&1
fi
shift
exec >&8 2>&9 8>&- 9>&-

place=$XDG_RUNTIME_DIR
children=()
finish() {
    for child in "${children[@]}"; do
        kill "$child" 2>/dev/null || true
    done
    wait || true
    rm -rf "$place"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

unset WAYLAND_DISPLAY

# The server picks a free number and says which once it listens.
mkfifo "$place/number"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset \
    3>"$place/number" >"$place/xvfb.log" 2>&1 &
children+=($!)
read -rt 20 number <"$place/number" || { cat "$place/xvfb.log" >&2; die "the screen did not start"; }
export DISPLAY=:$number

openbox --sm-disable >"$place/openbox.log" 2>&1 &
children+=($!)
managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
await 20 managed || { cat "$place/openbox.log" >&2; die "the window manager did not start"; }

# For those who wait until nobody on it has anything to do.
export VIRTUAL_DESKTOP_PROCESSES="${children[*]}"

status=0
"$@" || status=$?
exit $status
