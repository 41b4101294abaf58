#!/usr/bin/env bash
# The Windows program at work, where wine is installed; otherwise says that it was left out.
# Arguments: the folder with pn10.exe and its libraries.
set -euo pipefail
if ! command -v wine >/dev/null; then
  echo "$1/pn10.exe: not run, for there is no wine"
  exit 0
fi
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" LC_ALL=C.UTF-8
program=$(cd "$1" && pwd)/pn10.exe
work=$(mktemp -d)
trap 'wineserver=$(command -v wineserver || echo /usr/lib/wine/wineserver64); "$wineserver" -k || true; rm -rf "$work"' EXIT
export WINEPREFIX=$work/prefix
cd "$work"
pn10() { timeout 300 wine "$program" "$@" 2>"$work/errors"; }
# expect CODE WORDS...: runs the program; its output stays in "output".
expect() {
  local code=0 wanted=$1
  shift
  pn10 "$@" >output || code=$?
  [ "$code" = "$wanted" ] || { printf 'pn10 %s: code %s, not %s\n' "$*" "$code" "$wanted" >&2; cat output errors >&2; exit 1; }
}
says() { grep -qF -- "$1" "$2" || { printf '"%s" is not in:\n' "$1" >&2; cat "$2" >&2; exit 1; }; }

expect 0 --help
says "Exit codes" output
expect 0 sample "Städte/eins" --pipes 300
says "town: " output
expect 0 info "Städte/eins/town" --json
says '"pipes":{"live":' output
expect 0 set "Städte/eins/town" node 5 NODENAME "Große Straße"
expect 0 find "Städte/eins/town" --node "Große Straße"
says '"Große Straße"' output
expect 0 trace "Städte/eins/town" --type connected --from "Große Straße" -o trace.png
says "pipes and devices" output
expect 0 render "Städte/eins/town" -o "Städte/Bild.png" --size 300,200
python3 - "Städte/Bild.png" <<'PY'
import struct, sys, zlib
data = open(sys.argv[1], "rb").read()
assert data[:8] == b"\x89PNG\r\n\x1a\n", "no PNG"
at, pixels = 8, b""
while at < len(data):
    size, kind = struct.unpack(">I4s", data[at:at + 8])
    body = data[at + 8:at + 8 + size]
    if kind == b"IHDR":
        assert struct.unpack(">IIBB", body[:10]) == (300, 200, 8, 2), body
    if kind == b"IDAT":
        pixels += body
    at += size + 12
rows = zlib.decompress(pixels)
assert len(rows) == 200 * (1 + 300 * 3)
assert len(set(rows)) > 20, "an empty picture"
PY
expect 3 render "Städte/eins/town" -o map.pdf
says "map.pdf: on this system pictures are written as .png only" errors
expect 1 render "Städte/eins/town" -o nowhere/map.png
says "nowhere/map.png: can't be written" errors
[ ! -e map.pdf ]
echo "$program: makes, tells, edits, finds, traces and paints a town"
