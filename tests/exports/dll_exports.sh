#!/usr/bin/env bash
# A Windows DLL shows the names of a list, undecorated, and nothing else.
# Arguments: the DLL, a file with one name per line.
set -euo pipefail
dll=$1 names=$2
shown() { x86_64-w64-mingw32-objdump -p "$dll" | awk '/^\[Ordinal\/Name Pointer\]/ { on = 1; next } on && !NF { exit } on { print $NF }' | sort; }
if difference=$(diff <(sort "$names") <(shown)); then
  echo "$dll: $(wc -l <"$names") names, undecorated"
else
  printf '%s: missing (<) or too many (>)\n%s\n' "$dll" "$difference" >&2
  exit 1
fi
