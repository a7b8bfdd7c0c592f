#!/usr/bin/env bash
# usage: crash_matrix_fonts.sh CRASH_MATRIX [ACTION...]
# The crash-matrix while fonts come and go, as on a computer that is being set up: how many of them
# the program looks at must not lead a fault to another call.
set -euo pipefail
matrix=$1
shift
folder=$(mktemp -d)
mkdir "$folder/fonts" "$folder/cache"
cat >"$folder/fonts.conf" <<CONF
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <dir>$folder/fonts</dir>
  <cachedir>$folder/cache</cachedir>
  <include>/etc/fonts/fonts.conf</include>
</fontconfig>
CONF
mapfile -t fonts < <(find /usr/share/fonts -name '*.ttf' | sort | head -n 8)

come_and_go() {
    local round=0
    while true; do
        round=$((round + 1))
        mkdir -p "$folder/fonts/$((round % 5))"
        cp "${fonts[round % ${#fonts[@]}]}" "$folder/fonts/$((round % 5))/$round.ttf"
        [ $((round % 7)) -ne 0 ] || rm -rf "$folder/fonts/$((round / 7 % 5))"
        sleep 0.05
    done
}
come_and_go &
changing=$!
trap 'kill "$changing"; wait "$changing" 2>/dev/null || true; rm -rf "$folder"' EXIT
FONTCONFIG_FILE=$folder/fonts.conf "$matrix" "$@"
kill -0 "$changing" # the fonts changed to the end
[ "$(find "$folder/cache" -type f | wc -l)" -gt 0 ] # and the program looked at them
