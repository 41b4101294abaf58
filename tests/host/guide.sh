#!/usr/bin/env bash
# Takes the program out of docs/host-guide.md, block after block, builds it against the headers and the library, and
# runs it. Arguments: the folder of the built library, a scratch folder, the source folder.
set -euo pipefail
library=$1 work=$2 source=$3
rm -rf "$work"
mkdir -p "$work"
sed -n '/^```cpp$/,/^```$/p' "$source/docs/host-guide.md" | sed '/^```/d' >"$work/guide.cpp"
[ -s "$work/guide.cpp" ] || { echo "no program in docs/host-guide.md"; exit 1; }
c++ -std=c++20 -Wall -Wextra -Wpedantic -Werror -I"$source/src/exports" "$work/guide.cpp" -o "$work/guide" -L"$library" -lpn10gdi
cd "$work"
LD_LIBRARY_PATH=$library ./guide
[ -s map.png ] && [ -s guide.ndt ] && [ -s guide.ndt.bak ] || { echo "the guide did not paint, or did not save twice"; exit 1; }
echo "guide: builds and runs"
