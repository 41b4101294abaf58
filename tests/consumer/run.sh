#!/usr/bin/env bash
# Installs the built library, takes the host program out of README.md, and builds and runs it from the installed
# tree: once by find_package, once by pkg-config. Arguments: the build folder, a scratch folder, the source folder.
set -euo pipefail
build=$1 work=$2 source=$3
rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$work/prefix" >/dev/null

sed -n '/^```cpp$/,/^```$/p' "$source/README.md" | sed '/^```/d' >"$work/host.cpp"
[ -s "$work/host.cpp" ] || { echo "no host program in README.md"; exit 1; }

cmake -G Ninja -S "$source/tests/consumer" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/prefix" -DHOST_SOURCE="$work/host.cpp" >/dev/null
cmake --build "$work/build" >/dev/null
(cd "$work" && rm -f map.png && ./build/consumer && [ -s map.png ])

libdir=$(dirname "$(find "$work/prefix" -name pn10gdi.pc | head -n 1)")
export PKG_CONFIG_PATH=$libdir
# shellcheck disable=SC2046
c++ -std=c++17 "$work/host.cpp" -o "$work/host" $(pkg-config --cflags --libs pn10gdi)
(cd "$work" && rm -f map.png && LD_LIBRARY_PATH="$libdir/.." ./host && [ -s map.png ])
# The command-line host is installed with the library and finds it there.
[ ! -e "$work/prefix/bin/pn10" ] || "$work/prefix/bin/pn10" --help >/dev/null
echo "package: both ways build and run the host program of the README"
