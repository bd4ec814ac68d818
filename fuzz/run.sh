#!/usr/bin/env bash
# Runs every fuzz target for the given number of seconds, each with its own corpus.
set -euo pipefail
build=${1:-build-fuzz}
seconds=${2:-60}
root=$(cd "$(dirname "$0")/.." && pwd)
status=0
for target in "$root/$build"/fuzz/fuzz_*; do
  [ -x "$target" ] || continue
  name=$(basename "$target")
  corpus="$root/$build/corpus/$name"
  mkdir -p "$corpus"
  echo "== $name for ${seconds}s"
  "$target" -max_total_time="$seconds" -max_len=65536 "$corpus" 2>&1 | tail -3 || status=1
done
exit $status
