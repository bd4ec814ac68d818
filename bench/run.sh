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
echo "== whole process: search big.c beside grep and sed"
out=$home/replaced.c
zc=$(measure "$root/$build/bench/zolder_search_run" count int "$data/big.c")
# grep stops at the first match when its output is /dev/null, so it writes a file.
gc=$(measure sh -c "grep -c int '$data/big.c' > '$home/grep.out'")
zx=$(measure "$root/$build/bench/zolder_search_run" count 'x[0-9]+y' "$data/big.c")
gx=$(measure sh -c "grep -cE 'x[0-9]+y' '$data/big.c' > '$home/grep.out'")
zr=$(measure "$root/$build/bench/zolder_search_run" replace int long "$data/big.c" "$out")
sr=$(measure sh -c "sed 's/int/long/g' \"$data/big.c\" > \"$out\"")
for pair in "count int|$zc|grep -c int|$gc" "count x[0-9]+y|$zx|grep -cE x[0-9]+y|$gx" \
            "replace int by long|$zr|sed s/int/long/g > file|$sr"; do
  IFS='|' read -r zl z ol o <<<"$pair"
  awk -v zl="$zl" -v z="$z" -v ol="$ol" -v o="$o" 'BEGIN{
    split(z, a, " "); split(o, b, " ");
    printf "zolder %-22s %.2f s, peak %.0f MiB\n", zl, a[1], a[2]/1024;
    printf "%-29s %.2f s, peak %.0f MiB\n", ol, b[1], b[2]/1024;
    printf "time ratio: %.2f\n", (b[1] > 0 ? a[1]/b[1] : 0);
  }'
done
echo "== whole process: find in files over the generated tree beside grep -rn and rg -n"
tree=${ZOLDER_BENCH_TREE:-$root/$build/tree}
if [ ! -d "$tree/src" ]; then
  echo "Generating the tree in $tree"
  python3 "$root/../shared/bench/gen_tree.py" "$tree" >/dev/null
fi
grep -rn value "$tree" > /dev/null 2>&1 || true  # the same warm cache for every peer
for pat in "value|" "x[0-9]+y|-E"; do
  IFS='|' read -r p flag <<<"$pat"
  zf=$(measure sh -c "'$root/$build/bench/zolder_files_run' $flag '$p' '$tree' > '$home/files.out'")
  gf=$(measure sh -c "grep -rn $flag '$p' '$tree' > '$home/files.out'")
  rf=$(measure sh -c "rg -n '$p' '$tree' > '$home/files.out'")
  first=$("$root/$build/bench/zolder_files_run" $flag "$p" "$tree" 2>&1 >/dev/null)
  awk -v p="$p" -v z="$zf" -v g="$gf" -v r="$rf" -v f="$first" 'BEGIN{
    split(z, a, " "); split(g, b, " "); split(r, c, " ");
    printf "find in files %-10s zolder %.2f s, grep -rn %.2f s, rg -n %.2f s; %s\n", p, a[1], b[1], c[1], f;
    printf "time ratio zolder/grep: %.2f (asked: at most 1.5)\n", (b[1] > 0 ? a[1]/b[1] : 0);
  }'
done

echo "== scripts"
"$root/bench/script_bench.sh" "$root/$build/zolder"

echo
echo "== desktop editor: first paint of a 10,000-line file, repaint in big.c"
head -n 10000 "$data/big.c" > "$home/tenk.c"
qhome=$(mktemp -d)
"$root/$build/bench/zolder_qt_run" firstpaint "$qhome" "$home/tenk.c" 2>/dev/null
"$root/$build/bench/zolder_qt_run" repaint "$qhome" "$data/big.c" 2>/dev/null

echo
echo "== desktop editor: launch to first paint of big.c beside the headless open (whole processes)"
# The desktop run ends at its first paint; both processes drop the document before they exit.
d=$(measure "$root/$build/bench/zolder_qt_run" firstpaint "$qhome" "$data/big.c")
h=$(measure "$root/$build/zolder" --headless --home "$home" "$data/big.c")
awk -v d="$d" -v h="$h" 'BEGIN{
  split(d, a, " "); split(h, b, " ");
  printf "desktop, to first paint: %.2f s, peak %.0f MiB\n", a[1], a[2]/1024;
  printf "headless open:           %.2f s, peak %.0f MiB\n", b[1], b[2]/1024;
  printf "time ratio desktop/headless: %.2f (asked: at most 1.5)\n", (b[1] > 0 ? a[1]/b[1] : 0);
}'

echo
echo "== desktop editor: scripts on their own thread"
"$root/$build/bench/zolder_qt_run" scriptkey "$qhome" "$home/tenk.c" 2>/dev/null
"$root/$build/bench/zolder_qt_run" script "$qhome" "$root/bench/scripts/print_lines.c" 2>/dev/null
"$root/$build/bench/zolder_qt_run" script "$qhome" "$root/bench/scripts/walk.c" "$home/tenk.c" 2>/dev/null
p=$(measure "$root/$build/zolder" --headless --home "$home" --run "$root/bench/scripts/print_lines.c")
echo "print_lines.c headless, whole process, output to /dev/null: ${p%% *} s"

echo
echo "== desktop editor: the command palette narrowing its list, per key"
"$root/$build/bench/zolder_qt_run" palette "$qhome" - 2>/dev/null
rm -rf "$qhome"

echo
echo "== user tool: 200,000 lines captured into an output document beside output to a file"
"$root/bench/tools_bench.sh" "$root/$build/zolder"

echo
echo "== printing: the preview's first page of a 10,000-line file; big.c to PDF beside cp"
"$root/$build/bench/zolder_print_run" preview "$qhome" "$home/tenk.c" 2>/dev/null
zp=$(measure "$root/$build/zolder" --home "$home" --print-pdf "$home/big.pdf" "$data/big.c")
cp_=$(measure cp "$data/big.c" "$home/big.copy")
awk -v z="$zp" -v c="$cp_" -v s="$size" -v o="$(stat -c %s "$home/big.pdf")" 'BEGIN{
  split(z, a, " "); split(c, b, " ");
  printf "zolder --print-pdf big.c: %.2f s = %.1f MB/s (asked: at least 20), PDF %.0f MB, peak %.0f MiB\n",
         a[1], s / a[1] / 1e6, o / 1e6, a[2]/1024;
  printf "cp big.c (the disk alone): %.2f s\n", b[1];
}'
rm -f "$home/big.pdf" "$home/big.copy"
echo "== spelling of big1m.txt beside hunspell -l, and the completion popup"
big1m=${ZOLDER_BIG1M:-/work/benchdata/big1m.txt}
[ -f "$big1m" ] || big1m=$data/big1m.txt
phome=$(mktemp -d)
"$root/$build/bench/zolder_proofing_run" spell "$phome" "$big1m" 2>/dev/null
if command -v hunspell >/dev/null; then
  hs=$(measure sh -c "hunspell -d en_US -l '$big1m' > '$phome/words.out'")
  awk -v h="$hs" -v s="$(stat -c %s "$big1m")" 'BEGIN{ split(h, a, " ");
    printf "hunspell -l: %.2f s = %.1f MB/s\n", a[1], s / 1e6 / a[1]; }'
else
  echo "hunspell (the command) is not installed: no peer"
fi
"$root/$build/bench/zolder_proofing_run" popup "$phome" 2>/dev/null
rm -rf "$phome"
