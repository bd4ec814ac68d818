#!/bin/sh
# Runs every *.c program of DIR through "zolder --headless --run" and compares its
# standard output with NAME.c.expected or NAME.expect beside it, and its exit status
# with 0. -w compares ignoring white space. One line per failure, then "N passed, M failed".
# The binary is $ZOLDER, else build/zolder of this tree.
usage() { echo "usage: $0 [-w] DIR" >&2; exit 2; }
loose=0
while [ $# -gt 0 ]; do
  case $1 in
    -w) loose=1; shift ;;
    -h|--help) usage ;;
    *) break ;;
  esac
done
[ $# -eq 1 ] && [ -d "$1" ] || usage
dir=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
zolder=${ZOLDER:-$here/../../build/zolder}
[ -x "$zolder" ] || { echo "$0: no zolder binary at $zolder (set ZOLDER)" >&2; exit 2; }
zolder=$(cd "$(dirname "$zolder")" && pwd)/$(basename "$zolder")
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT INT TERM
mkdir -p "$work/home"
pass=0
fail=0
for src in "$dir"/*.c; do
  [ -e "$src" ] || continue
  name=${src%.c}
  if [ -f "$src.expected" ]; then want=$src.expected
  elif [ -f "$name.expect" ]; then want=$name.expect
  else want=""; fi
  (cd "$dir" && timeout 60 "$zolder" --headless --home "$work/home" --run "$src") \
    </dev/null >"$work/out" 2>"$work/err"
  status=$?
  why=""
  if [ "$status" -ne 0 ]; then
    why="exit status $status $(head -c 200 "$work/err" | head -1)"
  elif [ -n "$want" ]; then
    if [ $loose -eq 1 ]; then
      tr -d ' \t\r\n' <"$work/out" >"$work/a"; tr -d ' \t\r\n' <"$want" >"$work/b"
      cmp -s "$work/a" "$work/b" || why="output differs (ignoring white space)"
    else
      cmp -s "$work/out" "$want" || why="output differs"
    fi
  fi
  if [ -z "$why" ]; then
    pass=$((pass + 1))
  else
    fail=$((fail + 1))
    echo "FAIL $src: $why"
  fi
done
echo "$pass passed, $fail failed"
[ $fail -eq 0 ]
