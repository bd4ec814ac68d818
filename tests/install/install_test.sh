#!/bin/sh
# Installs Zolder into a scratch DESTDIR as a package would and checks what a Linux
# desktop looks for: the menu entry, the icon in every size, the AppStream description
# and the manual page, each checked by its own validator where that is installed.
set -eu
build=$1
source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
fail() { echo "FAIL: $*"; status=1; }
skip() { echo "skipped: $1 is not installed"; }

DESTDIR="$work/dest" cmake --install "$build" --prefix /usr >/dev/null
root="$work/dest/usr"
desktop="$root/share/applications/zolder.desktop"
metainfo="$root/share/metainfo/org.zolder.Zolder.metainfo.xml"
manpage="$root/share/man/man1/zolder.1"
for f in "$root/bin/zolder" "$desktop" "$metainfo" "$manpage" "$root/share/icons/hicolor/scalable/apps/zolder.svg"; do
  [ -f "$f" ] || fail "${f#"$root"/} is not installed"
done
[ -e "$root/share/zolder/desktop" ] && fail "data/desktop/ landed among the program data"

# Each PNG is as large as its folder says (width and height from the PNG header).
for n in 16 22 24 32 48 64 128 256; do
  png="$root/share/icons/hicolor/${n}x${n}/apps/zolder.png"
  if [ ! -f "$png" ]; then fail "no ${n}x${n} icon"; continue; fi
  set -- $(od -An -tu1 -j16 -N8 "$png")
  w=$(( ($1 << 24) + ($2 << 16) + ($3 << 8) + $4 )); h=$(( ($5 << 24) + ($6 << 16) + ($7 << 8) + $8 ))
  [ "$w" = "$n" ] && [ "$h" = "$n" ] || fail "the ${n}x${n} icon is ${w}x${h}"
done

grep -qx 'Exec=zolder %F' "$desktop" || fail "the menu entry does not start zolder with its files"
grep -qx 'Icon=zolder' "$desktop" || fail "the menu entry does not name the icon"
grep -q '<launchable type="desktop-id">zolder.desktop</launchable>' "$metainfo" ||
  fail "the AppStream description does not launch zolder.desktop"

if command -v desktop-file-validate >/dev/null; then
  desktop-file-validate --no-hints "$desktop" || fail "desktop-file-validate"
else skip desktop-file-validate; fi
if command -v appstreamcli >/dev/null; then
  appstreamcli validate --no-net "$metainfo" >"$work/as.txt" 2>&1 || { cat "$work/as.txt"; fail "appstreamcli validate"; }
else skip appstreamcli; fi
if command -v man >/dev/null; then
  LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$manpage" 2>"$work/man.txt" >/dev/null || fail "man cannot show zolder.1"
  [ -s "$work/man.txt" ] && { cat "$work/man.txt"; fail "man warns about zolder.1"; }
elif command -v groff >/dev/null; then
  groff -man -ww -z "$manpage" 2>"$work/man.txt"
  [ -s "$work/man.txt" ] && { cat "$work/man.txt"; fail "groff warns about zolder.1"; }
else skip man; fi

# The MIME types: every listed type exists in the shared MIME database, and every text
# type that the database gives a file pattern of a shipped language is listed.
mimedb=/usr/share/mime/packages/freedesktop.org.xml
if [ -f "$mimedb" ]; then
  listed=$(sed -n 's/^MimeType=//p' "$desktop" | tr ';' ' ')
  patterns=$(sed -n 's/^FilePattern=//p' "$source/data/syntax.hgl" | tr ';' ' ')
  awk -v listed="$listed" -v patterns="$patterns" '
    BEGIN {
      n = split(listed, l, " "); for (i = 1; i <= n; i++) want[l[i]] = 1
      n = split(patterns, p, " "); for (i = 1; i <= n; i++) pat[tolower(p[i])] = 1
    }
    /<mime-type type=/ { match($0, /type="[^"]*"/); type = substr($0, RSTART + 6, RLENGTH - 7); known[type] = 1 }
    /<alias type=/ { match($0, /type="[^"]*"/); known[substr($0, RSTART + 6, RLENGTH - 7)] = 1 }
    /<glob pattern=/ {
      match($0, /pattern="[^"]*"/); glob = substr($0, RSTART + 9, RLENGTH - 10)
      if ((tolower(glob) in pat) && type ~ /^text\// && !(type in want)) {
        print "FAIL: " glob " is " type ", which zolder.desktop does not list"; bad = 1
      }
    }
    END {
      for (t in want) if (!(t in known)) { print "FAIL: zolder.desktop lists the unknown type " t; bad = 1 }
      exit bad
    }' "$mimedb" || status=1
else skip shared-mime-info; fi

exit $status
