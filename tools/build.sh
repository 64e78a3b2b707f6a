#!/bin/bash
# build.sh PRESET [TARGET...]: configures a preset where needed and builds. Quiet, unless there is
# something to build or it fails.
set -eu -o pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
preset=$1
shift
folder=build
[ "$preset" = dev ] || folder=build-$preset

# The cache of compiled files serves any copy of the sources, and takes no preprocessing of its own.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_DEPEND=1
export CCACHE_SLOPPINESS=pch_defines,time_macros

log=$(mktemp)
trap 'rm -f "$log"' EXIT
if [ ! -f "$folder/build.ninja" ] && ! cmake --preset "$preset" >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi

# On a terminal one line tells how far it is; elsewhere only what goes wrong is shown.
progress() {
    awk -v log_file="$log" -v width="$(tput cols 2>/dev/null || echo 80)" '
        { print > log_file }
        /^(ninja: Entering|\[0\/|ninja: no work|-- )/ { next }
        /^\[[0-9]+\/[0-9]+\] / { printf "\r%s\033[K", substr($0, 1, width - 1); any = 1; fflush(); next }
        END { if (any) printf "\r\033[K" }'
}

if [ -t 1 ]; then
    ninja -C "$folder" "${@:-all}" 2>&1 | progress || failed=yes
else
    ninja -C "$folder" "${@:-all}" >"$log" 2>&1 || failed=yes
fi
if [ -n "${failed:-}" ]; then
    # From the first failure on.
    sed -n '/^FAILED\|^ninja: error\|error:/,$p' "$log" >&2
    exit 1
fi
