#!/bin/sh
# Installs Zolder into a scratch prefix, builds a plug-in against the installed header
# and package as an author would, and starts the installed program with it.
set -eu
build=$1
source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/prefix" >/dev/null
cmake -S "$source/tests/plugin/author" -B "$work/author" -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/author" >/dev/null

mkdir -p "$work/home/PlugIns"
cp "$work/author/hello.zop" "$work/home/PlugIns/"
printf 'first\nsecond\n' >"$work/doc.txt"
out=$("$work/prefix/bin/zolder" --headless --home "$work/home" "$work/doc.txt")
echo "$out"
echo "$out" | grep -qx 'hello: 1 document(s), first line "first"'
# The shipped example plug-ins came with the installed data.
test -f "$work/home/PlugIns/license_header.zop"
