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
echo "== whole process: Zolder beside its peer, measured in the same run (median of 5; load: $(cut -d' ' -f1-3 /proc/loadavg))"
home=$(mktemp -d)
# Saves go through a durable write, so the replaced files go to a disk folder, the
# peers' output too: $TMPDIR when set (say, a folder on the disk), else the build.
out_dir=$(mktemp -d "${TMPDIR:-$root/$build}/zolbench.XXXXXX")
trap 'rm -rf "$home" "$out_dir"' EXIT
measure() {  # prints "seconds peak-KiB" of the median run of five (by time)
  for _ in 1 2 3 4 5; do
    /usr/bin/time -f "%e %M" -o "$home/time.out" "$@" >/dev/null 2>&1 </dev/null || true
    tail -1 "$home/time.out"
  done | sort -n | sed -n 3p
}
size=$(stat -c %s "$data/big.c")
# row LABEL GOAL-RATIO "zolder command" "peer label" "peer command"
row() {
  local z p
  z=$(measure sh -c "$3")
  p=$(measure sh -c "$5")
  awk -v l="$1" -v g="$2" -v z="$z" -v p="$p" -v pl="$4" -v s="$size" 'BEGIN{
    split(z, a, " "); split(p, b, " ");
    printf "%-30s zolder %6.3f s %5.0f MiB (%.2fx file) | %-14s %6.3f s %5.0f MiB | ratio %.2f (goal %s)\n",
      l, a[1], a[2]/1024, a[2]*1024/s, pl, b[1], b[2]/1024, (b[1] > 0 ? a[1]/b[1] : 0), g;
  }'
}
zs="$root/$build/bench/zolder_search_run"
big="$data/big.c"
row "open and close big.c" "0.5 vim" "'$root/$build/zolder' --headless --home '$home' '$big'" \
    "vim -u NONE -es" "vim -u NONE -N -es -c q '$big'"
# grep stops at the first match when its output is /dev/null, so it writes a file.
row "count lines matching int" "1.2 grep" "'$zs' count int '$big'" \
    "grep -c" "grep -c int '$big' > '$out_dir/grep.out'"
row "count lines matching x[0-9]+y" "1.2 grep" "'$zs' count 'x[0-9]+y' '$big'" \
    "grep -cE" "grep -cE 'x[0-9]+y' '$big' > '$out_dir/grep.out'"
row "count lines matching int in an open document" "-" "'$zs' count-open int '$big'" \
    "grep -c" "grep -c int '$big' > '$out_dir/grep.out'"
row "replace-all int by long, save" "1.2 sed" "'$zs' replace int long '$big' '$out_dir/z.c'" \
    "sed" "sed 's/int/long/g' '$big' > '$out_dir/s.c'"
row "  the same beside vim" "-" "'$zs' replace int long '$big' '$out_dir/z.c'" \
    "vim :%s" "vim -u NONE -N -es -c '%s/int/long/ge' -c 'w! $out_dir/v.c' -c q '$big'"
echo "(replace-all output in $out_dir; the durable write's fsync is in zolder's time, not in sed's)"

echo
echo "== whole process: opening pathological files beside vim (median of 5)"
odd=$(mktemp -d "${TMPDIR:-$root/$build}/zolodd.XXXXXX")
trap 'rm -rf "$home" "$out_dir" "$odd"' EXIT
python3 - "$odd" <<'PY'
import sys
d = sys.argv[1]
with open(d + "/one_line.txt", "wb") as f: f.write(b"abcdefghij" * 10_000_000)
with open(d + "/empty_lines.txt", "wb") as f: f.write(b"\n" * 50_000_000)
with open(d + "/nul.bin", "wb") as f: f.write(b"\0" * 100_000_000)
PY
for f in one_line.txt empty_lines.txt nul.bin; do
  size=$(stat -c %s "$odd/$f")
  row "open $f" "-" "'$root/$build/zolder' --headless --home '$home' '$odd/$f'" \
      "vim -u NONE -es" "vim -u NONE -N -es -c q '$odd/$f'"
done
rm -rf "$odd"

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
echo "== the longest-running programs of tests/script (best CPU time of three)"
"$root/bench/script_suite_bench.sh" "$root/$build/zolder" "$root/tests/script"

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
