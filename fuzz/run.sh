#!/usr/bin/env bash
# Runs one fuzz target, or all, for some seconds each, from the committed seeds; a finding stops it.
# Arguments: the build folder, a target name or "all", seconds.
set -euo pipefail
build=$1 target=$2 seconds=$3
cd "$(dirname "$0")"
ran=0
[ -w /dev/shm ] && export TMPDIR=/dev/shm # the targets write a file per input
for source in *.cpp; do
  name=${source%.cpp}
  [ "$target" = all ] || [ "$target" = "$name" ] || continue
  echo "== $name for $seconds seconds"
  work=$(mktemp -d)
  "../$build/fuzz/fuzz_$name" -max_total_time="$seconds" -max_len=20000 -rss_limit_mb=4096 -print_final_stats=0 \
    -artifact_prefix="$work/" "$work" "seeds/$name" 2>"$work/log" || { tail -n 40 "$work/log"; echo "finding kept in $work"; exit 1; }
  tail -n 1 "$work/log"
  rm -rf "$work"
  ran=$((ran + 1))
done
[ "$ran" -gt 0 ] || { echo "no fuzz target named $target" >&2; exit 2; }
