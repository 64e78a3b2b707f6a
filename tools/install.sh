#!/bin/bash
# install.sh SECTION...: installs the packages of these sections of packages.txt that are missing.
# Says nothing when there are none. Where it cannot, it prints the command that would and fails.
set -eu

list=$(dirname "$0")/packages.txt
[ -n "${LORIVANE_PACKAGES:-}" ] && list=$LORIVANE_PACKAGES

wanted=()
for section in "$@"; do
    mapfile -t found < <(awk -v section="[$section]" '
        /^\[/ { inside = ($0 == section); next }
        /^[^#]/ && inside { print $1 }' "$list")
    wanted+=("${found[@]}")
done

if ! command -v dpkg-query >/dev/null; then
    echo "This is not a Debian system; these packages, or what is like them, are needed:" >&2
    echo "    ${wanted[*]}" >&2
    exit 1
fi

missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || true
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

# Without recommended packages, so that a server does not get a desktop.
install=(apt-get install -y --no-install-recommends "${missing[@]}")
if [ "$(id -u)" -eq 0 ]; then
    prefix=()
elif command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
    prefix=(sudo)
else
    echo "Some packages are missing. As root, run:" >&2
    echo "    apt-get update && ${install[*]}" >&2
    exit 1
fi

echo "Installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# The list of packages is fetched only where it is missing or too old to install from.
if ! "${prefix[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}" >"$log" 2>&1; then
    if ! "${prefix[@]}" apt-get update >"$log" 2>&1 ||
        ! "${prefix[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}" >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        echo "Some packages could not be installed. Once this works, start again:" >&2
        echo "    ${prefix[*]:+sudo }apt-get update && ${prefix[*]:+sudo }${install[*]}" >&2
        exit 1
    fi
fi
