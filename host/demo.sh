#!/usr/bin/env bash
# The main job in a minute: a town, its maps, a trace, a page. Arguments: the pn10 program, a folder for the results.
set -euo pipefail
pn10=$1 out=$2
mkdir -p "$out"

"$pn10" sample "$out/town" --pipes 1000 --seed 7 --replace
base=$out/town/town
"$pn10" info "$base"

show() { printf '  %-28s %s\n' "$1" "$2"; }
"$pn10" render "$base" -o "$out/overview.png"
field() { "$pn10" fields "$base" pipe "$1" --json | python3 -c '
import json, sys
for field in json.load(sys.stdin)["fields"]:
    if field["name"] == sys.argv[1]:
        print(field.get("text", field.get("value")))' "$2"; }
x=$(field 330 FROM_X) y=$(field 330 FROM_Y)
window() { python3 -c "x, y, w = $x, $y, $1; print(f'{x - w},{y - w * 0.75},{x + w},{y + w * 0.75}')"; }
"$pn10" render "$base" -o "$out/street.png" --size 1200,900 --window "$(window 560)"
"$pn10" render "$base" -o "$out/isometric.png" --view iso --size 1200,900
"$pn10" render "$base" -o "$out/facilities.png" --colours facility
"$pn10" render "$base" -o "$out/town.pdf"
start=$(field 40 FROM_NAME)
"$pn10" trace "$base" --type downstream --from "$start" -o "$out/trace.png"

echo
echo "finished pictures in $out:"
show overview.png "the whole town, pipes by size"
show street.png "some streets with labels, customers, devices and flow arrows"
show isometric.png "the town in the isometric view"
show facilities.png "the same network by facility"
show trace.png "what lies downstream of $start"
show town.pdf "the map as a page to print"
