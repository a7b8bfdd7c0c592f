#!/usr/bin/env bash
# usage: no_network.sh PROGRAM [ARGUMENT...]   (inside a display)
# Runs the program and fails when it, or anything it starts, opens a socket of the network.
set -euo pipefail
trace=$(mktemp)
trap 'rm -f "$trace"' EXIT
strace -f -qq --seccomp-bpf -e trace=socket,connect,sendto -o "$trace" "$@" >/dev/null
[ -s "$trace" ] || { echo "nothing was traced, so nothing is proved"; exit 1; }
if grep -E 'AF_INET6?|AF_PACKET' "$trace"; then
    echo "the program speaks to the network"
    exit 1
fi
echo "$(grep -c AF_UNIX "$trace") local sockets, none of the network"
