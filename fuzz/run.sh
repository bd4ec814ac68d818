#!/usr/bin/env bash
# Runs every fuzz target (built with ASan and UBSan) for the given number of seconds,
# or until FUZZ_RUNS executions when that comes first, each from the seed inputs committed in
# fuzz/corpus/<target>/ plus what earlier runs found (kept in <build>/corpus/<target>/).
# Prints, per target, the executions and the coverage libFuzzer reported at its end,
# and exits non-zero when any target found a crash; the crashing input is kept in
# <build>/artifacts/.
set -uo pipefail
build=${1:-build-fuzz}
seconds=${2:-10}
runs=${FUZZ_RUNS:-}
root=$(cd "$(dirname "$0")/.." && pwd)
artifacts="$root/$build/artifacts"
mkdir -p "$artifacts"
# Targets that save files fsync them; on a memory file system that costs nothing, so
# the scratch files go there when the machine has one.
if [ -z "${FUZZ_TMPDIR:-}" ] && [ -d /dev/shm ] && [ -w /dev/shm ]; then FUZZ_TMPDIR=/dev/shm; fi
[ -n "${FUZZ_TMPDIR:-}" ] && export TMPDIR="$FUZZ_TMPDIR"
status=0
summary=()
for target in "$root/$build"/fuzz/fuzz_*; do
  [ -x "$target" ] || continue
  name=$(basename "$target")
  # FUZZ_TARGETS (names, space separated) runs only those.
  if [ -n "${FUZZ_TARGETS:-}" ] && [[ " $FUZZ_TARGETS " != *" $name "* ]]; then continue; fi
  corpus="$root/$build/corpus/$name"
  seeds="$root/fuzz/corpus/$name"
  mkdir -p "$corpus"
  # Files the project keeps elsewhere (shipped data, test scripts) seed the targets too,
  # named in fuzz/seeds.txt rather than copied into fuzz/corpus/.
  while read -r t path; do
    [ "$t" = "$name" ] && cp -f "$root/$path" "$corpus/"
  done < <(grep -v '^#' "$root/fuzz/seeds.txt")
  limit=(-max_total_time="$seconds")
  [ -n "$runs" ] && limit+=(-runs="$runs")
  echo "== $name (${seconds}s${runs:+ or $runs runs})"
  log="$root/$build/$name.log"
  dirs=("$corpus")
  [ -d "$seeds" ] && dirs+=("$seeds")
  "$target" "${limit[@]}" -max_len=65536 -print_final_stats=1 -artifact_prefix="$artifacts/$name-" \
    "${dirs[@]}" >"$log" 2>&1
  code=$?
  execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  cov=$(grep -o 'cov: [0-9]*' "$log" | tail -1 | cut -d' ' -f2)
  ft=$(grep -o 'ft: [0-9]*' "$log" | tail -1 | cut -d' ' -f2)
  took=$(sed -n 's/^Done [0-9]* runs in \([0-9]*\) second.*/\1/p' "$log" | tail -1)
  if [ "$code" -ne 0 ]; then
    status=1
    grep -E 'ERROR|SUMMARY|Test unit written|deadly signal' "$log" | head -8
    summary+=("$(printf '%-26s FAILED (exit %d), see %s' "$name" "$code" "$log")")
  else
    summary+=("$(printf '%-26s %12s executions in %5ss   cov %6s   ft %6s' "$name" "${execs:-?}" "${took:-?}" "${cov:-?}" "${ft:-?}")")
  fi
done
echo "== summary"
printf '%s\n' "${summary[@]}"
exit $status
