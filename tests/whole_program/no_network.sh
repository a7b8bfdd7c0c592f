#!/usr/bin/env bash
# usage: no_network.sh PROGRAM [ARGUMENT...]   (inside a display)
# Runs the program and fails when it, or anything it starts, speaks to another machine. The print service of this
# machine (loopback) is asked for its printers by the print dialog; that is no network.
set -euo pipefail
trace=$(mktemp)
trap 'rm -f "$trace"' EXIT
# Without a bus Qt would start one that outlives the program, and strace would wait for it forever.
export DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent
strace -f -qq -e trace=connect,sendto,sendmsg -o "$trace" "$@" >/dev/null
grep -q AF_UNIX "$trace" || { echo "nothing was traced, so nothing is proved"; exit 1; }
others=$(grep -E 'AF_INET|AF_PACKET' "$trace" | grep -vE 'inet_addr\("127\.|inet_pton\(AF_INET6, "::1"' || true)
if [ -n "$others" ]; then
    echo "the program speaks to the network:"
    echo "$others"
    exit 1
fi
echo "no word to the network"
