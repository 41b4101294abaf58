#!/usr/bin/env bash
# Runs every benchmark and prints one table of ratios. Arguments: the build folder, then
#   --smallest            only the smallest size of each, briefly: keeps them alive
#   --against OTHER.so    another build of the library, its calls interleaved with those of this one
#   FILTER                a regular expression for the names
set -euo pipefail
build=$1
shift
cd "$(dirname "$0")/.."
options=() filter=. against=
while [ $# -gt 0 ]; do
  case $1 in
    --smallest) options+=(--benchmark_min_time=0.01); export PN10_BENCH_SMALLEST=1 ;;
    --against) against=$(realpath "$2"); shift ;;
    *) filter=$1 ;;
  esac
  shift
done
mkdir -p out/bench
rm -f out/bench/*.json
for program in "$build"/bench/bench_*; do
  [ -x "$program" ] && [ -f "$program" ] || continue
  name=$(basename "$program")
  PN10_BENCH_THIS="$build/src/libpn10gdi.so" PN10_BENCH_AGAINST=$against \
    "$program" --benchmark_filter="$filter" "${options[@]}" --benchmark_out="out/bench/$name.json" --benchmark_out_format=json >&2
done
python3 bench/table.py out/bench.csv out/bench/*.json
