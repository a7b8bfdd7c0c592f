#!/usr/bin/env bash
# scripts/check-hardening accepts a hardened program and names what another one lacks.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
check=$root/scripts/check-hardening
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cat >program.c <<'END'
#include <stdio.h>
#include <string.h>
int main(int count, char** texts)
{
    char copy[64];
    strcpy(copy, texts[count - 1]);
    return puts(copy) < 0;
}
END

build() { c++ -x c++ program.c "$root/app/fortify_mark.cpp" -w -o program "$@"; }
hardened=(-O2 -fPIE -pie -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
    -Wl,-z,relro,-z,now,-z,noexecstack)

build "${hardened[@]}"
"$check" program

lacks() { # words of the complaint; the compiler's options that take it away
    local words=$1
    shift
    build "${hardened[@]}" "$@"
    if "$check" program 2>complaint; then
        echo "accepted although built with $*"
        exit 1
    fi
    grep -qF "$words" complaint || { echo "built with $*, but the complaint is:"; cat complaint; exit 1; }
}
lacks "position independent" -fno-pie -no-pie
lacks "RELRO" -Wl,-z,norelro
lacks "full RELRO" -Wl,-z,lazy
lacks "non-executable stack" -Wl,-z,execstack
lacks "stack protector" -fno-stack-protector
lacks "fortified" -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=0
