#!/usr/bin/env bash
# Works the golden logs of the shapes out anew and compares them with the committed ones, so that none of them can be
# what the library happened to paint. Arguments: a scratch folder, the source folder.
set -euo pipefail
work=$1 source=$2
rm -rf "$work"
mkdir -p "$work"
for script in expected_ops.py worked_shapes.py; do python3 "$source/tests/draw/$script" "$work"; done

cd "$source/tests/golden/draw"
same=0
for file in $( (ls "$work" && grep -l '^# Worked out by ' -- *.ops) | sort -u); do
  cmp "$work/$file" "$file" || same=1
done
exit $same
