#!/usr/bin/env bash
# Runs every benchmark and prints one table of ratios. Arguments: the build folder, then
#   [--smallest]            only the smallest size of each, to keep them alive
#   [--against OTHER.so]    (bench_host) interleave another build of the library
#   [FILTER]                a regular expression for the names
# CSV goes to out/bench.csv.
set -euo pipefail
build=$1
shift
cd "$(dirname "$0")/.."
options=() filter=. against=
while [ $# -gt 0 ]; do
  case $1 in
    --smallest) options+=(--benchmark_min_time=0.01); export PN10_BENCH_SMALLEST=1 ;;
    --against) against=$2; shift ;;
    *) filter=$1 ;;
  esac
  shift
done
mkdir -p out
rows=out/bench.jsonl
: >"$rows"
for program in "$build"/bench/bench_*; do
  [ -x "$program" ] && [ -f "$program" ] || continue
  json=$(mktemp)
  "$program" --benchmark_filter="$filter" "${options[@]}" --benchmark_out="$json" --benchmark_out_format=json
  python3 bench/rows.py "$(basename "$program")" "$json" >>"$rows"
  rm -f "$json"
done
if [ -n "$against" ]; then
  python3 bench/against.py "$build" "$against" >>"$rows"
fi
python3 bench/table.py "$rows" out/bench.csv
