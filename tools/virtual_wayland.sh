#!/bin/bash
# virtual_wayland.sh COMMAND...: runs the command on a Wayland screen of its own (1280 by 1024)
# with a session bus, and ends all of them with it. Windows float, and nothing lies around them.
# `swaymsg` moves and asks, `grim` takes pictures, `wtype` types.
set -eu

die() {
    echo "virtual_wayland: $*" >&2
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
    for program in sway swaymsg wtype; do
        command -v "$program" >/dev/null || die "$program is missing"
    done
    # The services of the session keep their sockets here; it must belong to this user alone.
    XDG_RUNTIME_DIR=$(mktemp -d)
    export XDG_RUNTIME_DIR
    # The bus and what it starts are talkative; only the command's own words are wanted.
    exec dbus-run-session -- "$0" --inside "$@" 8>&1 9>&2 >/dev/null 2>&1
fi
shift
exec >&8 2>&9 8>&- 9>&-

place=$XDG_RUNTIME_DIR
# The compositor refuses to run as root.
as_user=()
if [ "$(id -u)" -eq 0 ]; then
    as_user=(setpriv --reuid nobody --regid nogroup --clear-groups)
fi
seat=$(mktemp -d)
[ ${#as_user[@]} -eq 0 ] || chown nobody:nogroup "$seat"
children=()
finish() {
    for child in "${children[@]}"; do
        kill "$child" 2>/dev/null || true
    done
    wait || true
    rm -rf "$place" "$seat"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# It keeps the keyboard's map there, and without one there is no keyboard.
"${as_user[@]}" test -w /dev/shm -a -x /dev/shm ||
    die "the user ${as_user[2]:-$(id -un)}, as whom the compositor runs, cannot write to /dev/shm" \
        "(as root: chmod 1777 /dev/shm)"

unset DISPLAY WAYLAND_DISPLAY SWAYSOCK

cat >"$seat/config" <<'CONFIG'
xwayland disable
output HEADLESS-1 resolution 1280x1024 position 0 0 background #404040 solid_color
default_border none
default_floating_border none
for_window [app_id=".*"] floating enable
focus_follows_mouse no
CONFIG

XDG_RUNTIME_DIR=$seat WLR_BACKENDS=headless WLR_RENDERER=pixman WLR_LIBINPUT_NO_DEVICES=1 \
    "${as_user[@]}" sway --config "$seat/config" >"$place/sway.log" 2>&1 &
children+=($!)
sockets() { compgen -G "$seat/wayland-?" && compgen -G "$seat/sway-ipc.*.sock"; }
await 20 sockets || { cat "$place/sway.log" >&2; die "the screen did not start"; }
# Whole paths, since they are in another user's place.
WAYLAND_DISPLAY=$(compgen -G "$seat/wayland-?" | head -1)
SWAYSOCK=$(compgen -G "$seat/sway-ipc.*.sock" | head -1)
export WAYLAND_DISPLAY SWAYSOCK
await 20 swaymsg -t get_outputs || { cat "$place/sway.log" >&2; die "the screen does not answer"; }

# A program sees a keyboard only some time after it came, so that the first keys would be lost.
# This one is there for an hour and types nothing.
wtype -s 3600000 -k Shift_L >/dev/null 2>&1 &
children+=($!)
has_keyboard() { swaymsg -t get_seats | grep -q '"type": "keyboard"'; }
await 20 has_keyboard || die "the keyboard did not come"

status=0
"$@" || status=$?
exit $status
