#!/usr/bin/env bash
# The test suite's own C programs (tests/script/*/*.c) through "zolder --headless --run":
# each is timed once, and the slowest are timed again (best CPU time of three) and
# listed, so that a slowdown of the interpreter on real programs shows.
set -euo pipefail
zolder=$(realpath "${1:?usage: script_suite_bench.sh ZOLDER_BINARY TESTS_SCRIPT_DIR [COUNT]}")
dir=${2:?usage: script_suite_bench.sh ZOLDER_BINARY TESTS_SCRIPT_DIR [COUNT]}
count=${3:-8}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cpu() {  # best CPU seconds (user + system) of N runs of the program, from its folder
  python3 - "$1" "$zolder" "$work/home" "$2" <<'PY'
import os, resource, subprocess, sys
runs, zolder, home, prog = int(sys.argv[1]), sys.argv[2], sys.argv[3], sys.argv[4]
best = None
for _ in range(runs):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    try:
        subprocess.run([zolder, "--headless", "--home", home, "--run", prog], cwd=os.path.dirname(prog),
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=120)
    except subprocess.TimeoutExpired:
        pass
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    t = after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime
    best = t if best is None or t < best else best
print("%.3f" % best)
PY
}
for c in "$dir"/*/*.c; do
  grep -q '// out:\|// exit:' "$c" || [ -f "$c.expected" ] || continue
  echo "$(cpu 1 "$c") $c"
done | sort -rn | head -n "$count" | while read -r _ c; do
  printf '%-40s %8s s\n' "${c#"$dir"/}" "$(cpu 3 "$c")"
done
