#!/bin/bash
# beside_load.sh COUNT COMMAND...: runs the command beside that many busy loops, which end with it.
set -eu

count=$1
shift
loops=()
trap 'kill "${loops[@]}"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
for ((i = 0; i < count; ++i)); do
    (trap - EXIT; while :; do :; done) &
    loops+=($!)
done
"$@"
