#!/usr/bin/env bash
# usage: check_metainfo.sh SOURCE   desktop file and metainfo are what software centres accept
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$1/scripts/build-metainfo" "$folder"
desktop-file-validate "$folder/de.parzello.parzello.desktop"
appstreamcli validate --pedantic --no-net "$folder/de.parzello.parzello.metainfo.xml"
