#!/usr/bin/env bash
# usage: test_menu_entry.sh SOURCE
# The entry in the start menu: added for the folder it is started from, whatever that is called, a valid
# desktop file that starts the program there, and gone again without a trace.
set -euo pipefail
source=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home XDG_DATA_HOME=$work/home/share
fault() { echo "test_menu_entry: $1" >&2; exit 1; }

folder="$work/Grüne Aue \"50 %\" \$1 \`x\` \\"
mkdir -p "$folder/symbole" "$HOME"
cp "$source/packaging/Startmenü-Eintrag" "$folder/"
cp "$source"/packaging/icons/*.png "$source/packaging/de.parzello.parzello.desktop.in" "$folder/symbole/"
printf '#!/bin/sh\necho started >"%s"\n' "$work/started" >"$folder/parzello"
chmod +x "$folder/parzello"
entry=$XDG_DATA_HOME/applications/de.parzello.parzello.desktop
listing() { find "$folder" "$HOME" -type f ! -name '*.cache' | sort; } # caches are the desktop's

before=$(listing)
"$folder/Startmenü-Eintrag" >"$work/said"
grep -q "steht jetzt im Startmenü" "$work/said" || fault "nothing said about the new entry"
desktop-file-validate "$entry" || fault "no valid desktop file"
[ "$(find "$XDG_DATA_HOME/icons" -name 'de.parzello.parzello.png' | wc -l)" = 7 ] || fault "not all icons are there"

# A desktop reads the command line in two steps: the file's escapes, then the quotes.
python3 - "$entry" "$folder/parzello" <<'PY' || fault "the entry starts something else"
import re, sys
line = next(line for line in open(sys.argv[1], encoding="utf-8") if line.startswith("Exec="))
text = line[5:].rstrip("\n").replace("\\\\", "\0").replace("\\s", " ").replace("\0", "\\")
assert text[0] == text[-1] == '"', text
path = re.sub(r'\\(["`$\\])', r"\1", text[1:-1]).replace("%%", "%")
sys.exit(path != sys.argv[2])
PY

"$folder/Startmenü-Eintrag" >"$work/said"
grep -q "nicht mehr im Startmenü" "$work/said" || fault "nothing said about the entry that is gone"
[ "$(listing)" = "$before" ] || fault "something is left behind"

# Another folder's entry is replaced, not taken away.
"$folder/Startmenü-Eintrag" anlegen >/dev/null
cp -R "$folder" "$work/zweiter"
"$work/zweiter/Startmenü-Eintrag" >/dev/null
grep -qxF "Exec=\"$work/zweiter/parzello\"" "$entry" || fault "the second folder's entry did not replace the first"
"$folder/Startmenü-Eintrag" entfernen >/dev/null
[ ! -e "$entry" ] || fault "the entry is still there"
! "$folder/Startmenü-Eintrag" unsinn >"$work/said" || fault "an unknown word is no fault"
grep -q "entfernen" "$work/said" || fault "no usage for an unknown word"
