#!/usr/bin/env bash
# Whole-process script benchmarks: each C89 program of the shared bench scripts through
# "zolder --headless --run", with its Lua twin under lua5.4 and the same C under
# "tcc -run", measured in the same run (best CPU time of three), a script walking the
# lines of big.c (from $ZOLDER_BENCH_DATA), and the start-up of an empty main.
set -euo pipefail
zolder=${1:?usage: script_bench.sh ZOLDER_BINARY}
root=$(cd "$(dirname "$0")/.." && pwd)
scripts=${ZOLDER_BENCH_SCRIPTS:-}
if [ -z "$scripts" ]; then
  for d in "$root/../shared/bench/scripts" "$root/../../shared/bench/scripts"; do
    [ -d "$d" ] && scripts=$d && break
  done
fi
[ -n "$scripts" ] && [ -d "$scripts" ] || { echo "no bench scripts (set ZOLDER_BENCH_SCRIPTS)" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
best() {  # prints the best CPU seconds (user + system) of three runs
  python3 - "$@" <<'PY'
import resource, subprocess, sys
best = None
for _ in range(3):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(sys.argv[1:], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    t = after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime
    best = t if best is None or t < best else best
print("%.3f" % best)
PY
}
printf '%-12s %9s %9s %9s %12s\n' program zolder lua5.4 tcc zolder/lua
for c in "$scripts"/bench_*.c; do
  name=$(basename "$c" .c)
  z=$(best "$zolder" --headless --home "$work/home" --run "$c")
  l=-; t=-
  command -v lua5.4 >/dev/null && [ -f "${c%.c}.lua" ] && l=$(best lua5.4 "${c%.c}.lua")
  command -v tcc >/dev/null && t=$(best tcc -run "$c")
  ratio=$(awk -v z="$z" -v l="$l" 'BEGIN{ if (l == "-" || l == 0) print "-"; else printf "%.2f", z / l }')
  printf '%-12s %9s %9s %9s %12s\n' "$name" "$z" "$l" "$t" "$ratio"
done
# A script walking every line of big.c through the editor, the whole process with the
# opening of the file, beside lua5.4 reading the file line by line.
data=${ZOLDER_BENCH_DATA:-}
if [ -n "$data" ] && [ -f "$data/big.c" ]; then
  walk=$root/bench/scripts
  z=$(best "$zolder" --headless --home "$work/home" "$data/big.c" --run "$walk/walk.c")
  o=$(best "$zolder" --headless --home "$work/home" "$data/big.c")
  l=-
  command -v lua5.4 >/dev/null && l=$(best lua5.4 "$walk/walk.lua" "$data/big.c")
  ratio=$(awk -v z="$z" -v l="$l" 'BEGIN{ if (l == "-" || l == 0) print "-"; else printf "%.2f", z / l }')
  printf '%-12s %9s %9s %9s %12s   (opening big.c alone: %s)\n' walk_big_c "$z" "$l" - "$ratio" "$o"
  zs=$("$zolder" --headless --home "$work/home" "$data/big.c" --run "$walk/walk.c")
  if command -v lua5.4 >/dev/null && [ "$zs" != "$(lua5.4 "$walk/walk.lua" "$data/big.c")" ]; then
    echo "walk_big_c: the script's sum $zs differs from lua's" >&2
  fi
fi
echo 'int main(void) { return 0; }' >"$work/empty.c"
best_wall() {
  local b=""
  for _ in 1 2 3 4 5; do
    local s
    s=$(python3 -c 'import subprocess, sys, time
t = time.perf_counter()
subprocess.run(sys.argv[1:], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
print("%.4f" % (time.perf_counter() - t))' "$@")
    if [ -z "$b" ] || awk -v a="$s" -v b="$b" 'BEGIN{exit !(a<b)}'; then b=$s; fi
  done
  echo "$b"
}
echo "start-up of an empty main: $(best_wall "$zolder" --headless --home "$work/home" --run "$work/empty.c") s (wall, best of five)"
