#!/usr/bin/env bash
# A user tool printing 200,000 lines: captured into an output document by the headless
# editor, beside the same tool with its output redirected to a file. The editor's own
# start (the same run with a tool that prints nothing) is measured apart and taken off.
set -euo pipefail
zolder=${1:-build/zolder}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
lines=200000
tool="BEGIN { for (i = 1; i <= $lines; i++) printf \"src/module%d.c:%d: warning: unused variable 'x%d'\\n\", i % 97, i, i }"
echo "$tool" > "$work/tool.awk"
script() {  # $1: awk program file
  cat > "$work/run.c" <<C
#include <editor/app.h>
#include <editor/doc.h>
int main(void)
{
    if (!Zol_ExecuteTool("awk", "-f $1", ZOL_TOOL_CAPTURE, "$work")) return 1;
    return Zol_GetNumberOfLines(Zol_GetActiveDocument()) > 0 ? 0 : 2;
}
C
}
best() {  # the best of five runs, in seconds
  local b=""
  for _ in 1 2 3 4 5; do
    local s e
    s=$(date +%s.%N); "$@" >/dev/null 2>&1 </dev/null; e=$(date +%s.%N)
    b=$(awk -v b="$b" -v t="$(awk -v s="$s" -v e="$e" 'BEGIN{print e-s}')" 'BEGIN{print (b == "" || t < b) ? t : b}')
  done
  echo "$b"
}
echo 'BEGIN { }' > "$work/empty.awk"
script "$work/empty.awk"; cp "$work/run.c" "$work/empty.c"
script "$work/tool.awk"
file=$(best sh -c "awk -f '$work/tool.awk' > '$work/out.txt'")
start=$(best "$zolder" --headless --home "$work/home" --run "$work/empty.c")
captured=$(best "$zolder" --headless --home "$work/home" --run "$work/run.c")
awk -v f="$file" -v s="$start" -v c="$captured" -v n="$lines" 'BEGIN{
  printf "tool, %d lines, output to a file:    %.3f s\n", n, f;
  printf "zolder start with an empty tool:      %.3f s\n", s;
  printf "zolder capturing the tool:            %.3f s (%.3f s without the start)\n", c, c - s;
  printf "time ratio captured/file:             %.2f\n", (c - s) / f;
}'
