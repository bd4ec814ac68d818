#!/usr/bin/env bash
# Runs every benchmark: the micro-benchmarks and the whole-process ones, with the
# peer editor measured in the same run. Inputs come from the shared generator.
set -euo pipefail
build=${1:-build-bench}
root=$(cd "$(dirname "$0")/.." && pwd)
gen=$root/../shared/bench/gen_inputs.py
data=${ZOLDER_BENCH_DATA:-$root/$build/inputs}
if [ ! -f "$data/big.c" ]; then
  echo "Generating benchmark inputs in $data"
  python3 "$gen" "$data" >/dev/null
fi
export ZOLDER_BENCH_DATA=$data

echo "== micro-benchmarks"
"$root/$build/bench/zolder_bench" --benchmark_min_time=0.2

echo
echo "== whole process: open and close big.c ($(stat -c %s "$data/big.c") bytes)"
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
measure() {  # prints "seconds peak-KiB" of the best of five runs
  local best="" 
  for _ in 1 2 3 4 5; do
    local out
    /usr/bin/time -f "%e %M" -o "$home/time.out" "$@" >/dev/null 2>&1 </dev/null || true
    out=$(tail -1 "$home/time.out")
    if [ -z "$best" ] || awk -v a="${out%% *}" -v b="${best%% *}" 'BEGIN{exit !(a<b)}'; then best=$out; fi
  done
  echo "$best"
}
size=$(stat -c %s "$data/big.c")
z=$(measure "$root/$build/zolder" --headless --home "$home" "$data/big.c")
v=$(measure vim -u NONE -N -es -c q "$data/big.c")
awk -v z="$z" -v v="$v" -v s="$size" 'BEGIN{
  split(z, a, " "); split(v, b, " ");
  printf "zolder: %.2f s, peak %.0f MiB = %.2f x file size\n", a[1], a[2]/1024, a[2]*1024/s;
  printf "vim:    %.2f s, peak %.0f MiB = %.2f x file size\n", b[1], b[2]/1024, b[2]*1024/s;
  printf "time ratio zolder/vim: %.2f\n", a[1]/b[1];
}'

echo
echo "== scripts"
"$root/bench/script_bench.sh" "$root/$build/zolder"
