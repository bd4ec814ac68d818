#!/bin/sh
# Below app/ nothing includes Qt; only platform/ includes operating-system headers.
root=$1
status=0
core="engine files syntax search script config tools plugin"
for d in $core platform; do
  [ -d "$root/$d" ] || continue
  if grep -rnE '#include *<Q' "$root/$d"; then
    echo "Qt header included below app/ (in $d/)"; status=1
  fi
done
for d in $core; do
  [ -d "$root/$d" ] || continue
  if grep -rnE '#include *<(unistd|fcntl|dirent|dlfcn|pwd|signal|termios|poll)\.h>|#include *<sys/' "$root/$d"; then
    echo "operating-system header outside platform/ (in $d/)"; status=1
  fi
done
exit $status
