#!/bin/sh
# Below app/ nothing includes Qt; only platform/ includes operating-system headers;
# every folder includes only its own layer and the layers below it.
root=$1
status=0
core="engine files syntax search script config tools proofing printing plugin"
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

# The C++ library's own doors to the system (files, folders, clocks, randomness) are
# platform/'s too. std::remove with iterators is the algorithm, not the file call.
system_calls='std::filesystem|[^_a-zA-Z]fopen *\(|std::rename *\(|[^_a-zA-Z.>]rename *\(|[^_a-zA-Z]::(rename|remove) *\(|std::remove *\([^,;]*;|std::[io]?fstream|[^_a-zA-Z.:>]time *\(|std::time *\(|[^_a-zA-Z]localtime(_r)? *\(|std::clock *\(|[^_a-zA-Z.:>]clock *\(\)|random_device|std::chrono::(system|steady|high_resolution)_clock'
for d in $core app; do
  [ -d "$root/$d" ] || continue
  if grep -rnE --include='*.cpp' --include='*.h' "$system_calls" "$root/$d" | grep -vE '^[^:]*:[0-9]+: *//'; then
    echo "the C++ library's file, clock or random facilities used outside platform/ (in $d/)"; status=1
  fi
done

# The layers of DESIGN.md, bottom up. Of the folders that share a layer, script/ sits
# on config/: the macros are kept in the key file and the macro menu in the settings,
# so config/ must never include script/ (the two would include each other).
dirs=
for d in $core platform; do [ -d "$root/$d" ] && dirs="$dirs $d"; done
if ! (cd "$root" && grep -rnE '^# *include *"[a-z]+/' $dirs) | awk '
  BEGIN {
    rank["platform"] = 0; rank["engine"] = 1
    rank["files"] = rank["syntax"] = rank["search"] = 2
    rank["script"] = rank["config"] = rank["tools"] = rank["proofing"] = rank["printing"] = 3
    rank["plugin"] = 4; rank["app"] = 5
  }
  {
    from = $0; sub(/\/.*/, "", from)
    to = $0; sub(/^[^"]*"/, "", to); sub(/\/.*/, "", to)
    if (!(to in rank)) next
    if (rank[to] > rank[from] || (from == "config" && to == "script")) { print; bad = 1 }
  }
  END { exit bad }'; then
  echo "a folder includes a folder above it (config/ counts script/ as above)"; status=1
fi
exit $status
