#!/bin/sh
# usage_test.sh PROGRAM VERSION: --help and --version of the real program, with no display.
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

# Nothing is read or written for it.
[ -z "$(ls -A "$XDG_CONFIG_HOME")" ] || fail "settings were written"

# A text that cannot be written is an error.
if "$program" --help 2>/dev/null >/dev/full; then
    fail "a full device goes unnoticed"
fi
