#!/usr/bin/env bash
# scripts/install-packages says and does nothing when all is there, installs only what is missing,
# and says what to do where it may not install.
set -euo pipefail
install=$(cd "$(dirname "$0")/../../scripts" && pwd)/install-packages
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() { echo "$*"; exit 1; }

# Stand-ins for the system's tools: the file "missing" lists what is not installed, "calls" records.
cd "$folder"
mkdir tools
export STAND_INS=$folder
cat >tools/dpkg-query <<'END'
#!/bin/bash
if grep -qx -- "${@: -1}" "$STAND_INS/missing"; then exit 1; fi
printf installed
END
cat >tools/apt-get <<'END'
#!/bin/bash
echo "$*" >>"$STAND_INS/calls"
[ ! -e "$STAND_INS/broken" ] || { echo "no route to the mirror"; exit 100; }
END
cat >tools/id <<'END'
#!/bin/bash
cat "$STAND_INS/user"
END
cat >tools/sudo <<'END'
#!/bin/bash
echo sudo >>"$STAND_INS/calls"
exec "$@"
END
chmod +x tools/*
try() { (PATH="$folder/tools:$PATH" "$install" "$@") >said 2>&1; }

echo 0 >user; : >missing; : >calls
try build run test || fail "fails although nothing is missing"
[ ! -s said ] || fail "says something although nothing is missing"
[ ! -s calls ] || fail "calls apt although nothing is missing"

echo cmake >missing
try build run || fail "root: fails"
grep -q '^Installing: cmake$' said || fail "does not say what it installs"
grep -q ' install --no-install-recommends cmake$' calls || fail "calls: $(cat calls)"
! grep -q sudo calls || fail "root needs no sudo"

echo 1000 >user; : >calls
try build || fail "sudo: fails"
grep -q '^sudo$' calls || fail "a user needs sudo"

touch broken
! try build || fail "a failing apt must fail"
grep -q 'no route to the mirror' said || fail "does not show what apt said"

rm broken tools/sudo
without_sudo() { (PATH="$folder/tools:$folder/plain" "$install" build) >said 2>&1; }
mkdir plain
for tool in bash env dirname awk mktemp rm cat grep; do ln -s "$(command -v $tool)" plain/; done
! without_sudo || fail "without sudo it must fail"
grep -q 'please have them installed: cmake' said || fail "does not name the missing package: $(cat said)"

! try nonsense || fail "an unknown group must fail"
