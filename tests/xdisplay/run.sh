#!/usr/bin/env bash
# The desktop editor on a real X server: an Xvfb of its own with openbox, the real
# zolder with a fresh home and a file that does not exist yet. Checks that the window
# opens large, that the document fills the area below its tab, that typed keys reach
# it, that Ctrl+S writes them, and that work not yet saved outlives the display. Exits 77 (skipped) without Xvfb, openbox or xdotool.
#   run.sh ZOLDER PROBE
set -u
zolder=$1
probe=$2
for tool in Xvfb openbox xdotool; do
  if ! command -v "$tool" >/dev/null; then
    echo "skipped: $tool is not installed (make test's install step brings it)"
    exit 77
  fi
done

work=$(mktemp -d)
pids=()
cleanup() {
  for ((i = ${#pids[@]} - 1; i >= 0; i--)); do kill "${pids[i]}" 2>/dev/null; done
  wait 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "FAIL: $*"; exit 1; }

# Waits up to $1 tenths of a second for the command after it to succeed.
wait_for() {
  local tenths=$1
  shift
  for ((t = 0; t < tenths; t++)); do
    "$@" >/dev/null 2>&1 && return 0
    sleep 0.1
  done
  return 1
}

# A display number no other server holds: Xvfb takes its lock file or gives up, and a
# server that answers while ours is gone is someone else's.
start_xvfb() {
  local n=$((100 + RANDOM % 800)) tries xvfb
  for ((tries = 0; tries < 20; tries++, n++)); do
    [ -e "/tmp/.X$n-lock" ] || [ -e "/tmp/.X11-unix/X$n" ] && continue
    Xvfb ":$n" -screen 0 1280x800x24 -nolisten tcp -noreset 2>"$work/xvfb.log" &
    xvfb=$!
    if wait_for 50 env DISPLAY=":$n" xdotool getdisplaygeometry && kill -0 "$xvfb" 2>/dev/null; then
      pids+=("$xvfb")
      export DISPLAY=":$n"
      return 0
    fi
    kill "$xvfb" 2>/dev/null
    wait "$xvfb" 2>/dev/null
  done
  return 1
}
start_xvfb || fail "Xvfb did not start: $(cat "$work/xvfb.log")"
openbox --sm-disable >"$work/openbox.log" 2>&1 &
pids+=($!)
# A window mapped while the window manager starts may stay hidden; its own window
# named "Openbox" says it runs.
wait_for 100 xdotool search --class Openbox || fail "openbox did not start on $DISPLAY: $(cat "$work/openbox.log" "$work/xvfb.log")"

file=$work/notes.txt
"$zolder" --home "$work/home" "$file" >"$work/zolder.log" 2>&1 &
pids+=($!)
window_of_zolder() { xdotool search --onlyvisible --name ' - Zolder$' | head -1 | grep .; }
wait_for 200 window_of_zolder || fail "no Zolder window: $(cat "$work/zolder.log")"
win=$(window_of_zolder)
# The window manager has taken the window over once it is the active one.
wait_for 100 sh -c "[ \"\$(xdotool getactivewindow)\" = $win ]" || fail "the window never became active"
sleep 0.5

eval "$(xdotool getwindowgeometry --shell "$win")"
echo "window: ${WIDTH}x${HEIGHT} at $X,$Y"
[ "$WIDTH" -ge 768 ] && [ "$HEIGHT" -ge 480 ] || fail "the window is small: ${WIDTH}x${HEIGHT}"
read -r across down < <("$probe" "$X" "$Y" "$WIDTH" "$HEIGHT") || fail "the probe could not read the screen"
echo "empty text area: $across pixels across the middle, $down down it"
[ $((across * 100)) -ge $((WIDTH * 85)) ] || fail "the document does not fill the width: $across of $WIDTH"
[ $((down * 100)) -ge $((HEIGHT * 55)) ] || fail "the document does not fill the height: $down of $HEIGHT"

xdotool type --delay 20 "one"
xdotool key Return
xdotool type --delay 20 "two"
xdotool key ctrl+s
wait_for 50 test -f "$file" || fail "Ctrl+S wrote nothing"
bytes=$(od -An -c "$file" | tr -s ' \n' ' ')
[ "$(cat "$file")" = "$(printf 'one\r\ntwo')" ] || fail "the file holds:$bytes"
echo "saved:$bytes"

# The display goes away under unsaved work: the editor ends, its work kept in a side
# file for the next start, the saved file as it was.
xdotool type --delay 20 "three"
sleep 0.3
kill "${pids[0]}"
wait_for 100 sh -c "! kill -0 ${pids[2]} 2>/dev/null" || fail "the editor outlived its display"
side=$(ls "$work/home"/~zol*.asd 2>/dev/null | head -1)
[ -n "$side" ] || fail "no side file after the display went: $(cat "$work/zolder.log")"
[ "$(cat "$side")" = "$(printf 'one\r\ntwothree')" ] || fail "the side file holds: $(od -An -c "$side")"
[ "$(cat "$file")" = "$(printf 'one\r\ntwo')" ] || fail "the saved file changed"
echo "display gone, work kept in $(basename "$side")"
echo "passed"
