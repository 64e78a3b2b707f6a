#!/bin/sh
# usage_test.sh PROGRAM VERSION: what the real program answers in a terminal, with no display.
set -eu

program=$1
version=$2
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
XDG_CONFIG_HOME=$(mktemp -d)
export XDG_CONFIG_HOME
trap 'rm -rf "$XDG_CONFIG_HOME"' EXIT

fail() {
    echo "$*" >&2
    exit 1
}

text=$("$program" --version 2>&1) || fail "--version: status $?"
[ "$text" = "Lorivane $version" ] || fail "--version: $text"

text=$("$program" --help 2>&1) || fail "--help: status $?"
case $text in
"Usage: lorivane "*"--version"*) ;;
*) fail "--help: $text" ;;
esac

[ "$("$program" -h 2>&1)" = "$text" ] || fail "-h is not --help"

# complains LINES ARGUMENT...: it ends with status 2 and has written these lines as errors only.
complains() {
    lines=$1
    shift
    status=0
    said=$("$program" "$@" 2>&1 >/dev/null) || status=$?
    [ "$status" = 2 ] || fail "$*: status $status: $said"
    [ "$said" = "$lines" ] || fail "$*: $said"
}

none="No such file or directory"
complains "lorivane: unknown option: --fast" --fast
complains "lorivane: unknown option: -x" "$XDG_CONFIG_HOME" none.png -x --fast
complains "lorivane: none.png: $none" none.png
complains "lorivane: -h: $none" -- -h
complains "lorivane: /no such.png: $none" file:///no%20such.png
complains "lorivane: none.png: $none
lorivane: two\\x0alines: $none" none.png "two
lines"

# Nothing is read or written for any of it.
[ -z "$(ls -A "$XDG_CONFIG_HOME")" ] || fail "settings were written"

# A text that cannot be written is an error.
if "$program" --help 2>/dev/null >/dev/full; then
    fail "a full device goes unnoticed"
fi
