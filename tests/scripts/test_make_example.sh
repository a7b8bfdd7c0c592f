#!/usr/bin/env bash
# scripts/make-example fills a folder once, with the years of the given day, byte for byte in the
# form in which the program writes its files.
set -euo pipefail
export LC_ALL=C
make=$(cd "$(dirname "$0")/../../scripts" && pwd)/make-example
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() { echo "$*"; exit 1; }
club=$folder/club

"$make" "$club" 2031-06-30
expected="Config.ini Config1.ini HandKasse2030.pz HandKasse2031.pz Konto2030.pz Konto2031.pz"
expected="$expected Mitgliedsdaten2030.pz Mitgliedsdaten2031.pz V.dat"
[ "$(ls "$club" | tr '\n' ' ')" = "$expected " ] || fail "files: $(ls "$club")"

for file in "$club"/*; do
    [ "$(grep -c '' "$file")" = "$(grep -c $'\r$' "$file")" ] || fail "$file: a line does not end in CR LF"
    ! grep -q 'JAHR' "$file" || fail "$file: a placeholder is left"
done
for file in "$club"/Mitgliedsdaten*.pz; do
    awk -F';' 'NF != 16 { exit 1 }' "$file" || fail "$file: a record has not 16 fields"
done
grep -q $'^D\xf6rfler;' "$club/Mitgliedsdaten2031.pz" || fail "the umlaut is not a single byte"
grep -q $'^\\[2030\\]\r$' "$club/Config.ini" || fail "no section 2030"
grep -q $'^Fl\xe4che=0,03\r$' "$club/Config.ini" || fail "no price for the area"

# The bank's number is one that a bank would take, as the program's own check has it.
iban=$(sed -n 's/^BLZ=//p' "$club/Config1.ini" | tr -d ' \r')
python3 -c 'import sys; i = sys.argv[1]; sys.exit(int("".join(str(int(c, 36)) for c in i[4:] + i[:4])) % 97 != 1)' \
    "$iban" || fail "the IBAN $iban is none"

# What this year's bills deduct was asked for last year: electricity and water.
last_year=$(sed -n '/^\[2030\]/,/^\[2031\]/p' "$club/Config.ini" | tr -d '\r')
for kind in Strom Wasser; do
    grep -qx "Vorauszahlung $kind=1" <<<"$last_year" || fail "last year asked for no prepayment: $kind"
done

# Last year's end readings are this year's start readings.
paste -d';' "$club/Mitgliedsdaten2030.pz" "$club/Mitgliedsdaten2031.pz" | tr -d '\r' \
    | awk -F';' '$14 != $29 || $16 != $31 { exit 1 }' || fail "readings do not go on"

# The carried balance is last year's.
balance=$(tr ',' '.' <"$club/Konto2030.pz" | awk -F';' '{ b += $3 - $4 } END { printf "%.2f", b }' | tr '.' ',')
head -n 1 "$club/Konto2031.pz" | grep -qF "$balance;0,00" || fail "carried balance is not $balance"

tail -n 1 "$club/Konto2031.pz" | grep -q '^15.06.2031' || fail "a booking of the future"
"$make" "$folder/january" 2031-01-01
[ "$(grep -c '' "$folder/january/Konto2031.pz")" = 1 ] || fail "the carry-over line is missing"

# A folder with a club is left alone.
echo own >"$club/V.dat"
rm "$club/Config.ini"
"$make" "$club" 2032-06-30
[ "$(cat "$club/V.dat")" = own ] || fail "the club name was overwritten"
[ ! -e "$club/Config.ini" ] || fail "a file was added to a folder in use"
[ ! -e "$club/Konto2032.pz" ] || fail "a file was added to a folder in use"
