#!/bin/sh
# Command numbers are written in engine/commands.def alone; product code names the
# commands (Cmd::Find, idOf(Cmd::Undo)). This check fails when a command's number is
# written out anywhere else in the places where a number stands for a command:
#  1. a constant of the command-number type uint16_t (a variable, an array, an
#     enumerator of a uint16_t enum), or an array whose name speaks of commands
#     (kParamCommands), holding a command's number in its initialiser;
#  2. a constant of any type named after a command (kSaveFile, kInsertCharId,
#     kParam1Command, SaveFile) that holds that command's own number;
#  3. a command's number given as the command to execute(), setCommandHandler(),
#     commandHandler(), findCommand(), commandName(), commandParamKind(),
#     commandGroup(), commandDescriptionString(), recordStep(), runCommand(),
#     frameCommand() or CommandCall{};
#  4. a "case N:" label in a switch over a command (its subject mentions id, cmd or
#     command), or a command variable (id, cmd, command, lastCmd, call.id, ...)
#     compared with or offset by a command's number.
# Only numbers that are some command's count, so undo kinds, macro slot bounds
# (1000..1149) and the like pass. 1 passes in comparisons and uint16_t constants:
# "id < 1" asks for a positive number, and a 16-bit "kVersion = 1" is a version, far
# more often than either means NullCmd. Comments, strings and character
# constants are not read.
#
# Usage: command_literals.sh ROOT [LIST]   scans ROOT's product folders
#        command_literals.sh --self-test LIST
# LIST is the command list, ROOT/engine/commands.def unless given; a tree from before
# the list existed is checked with today's list. The self-test runs the check on
# lines of the kinds it was written against and on look-alikes it must let pass.

folders="engine files syntax search script config tools proofing plugin app"

scan() {  # scan LIST FILE...
  list=$1
  shift
  awk -v apos="'" '
  function isCommandNumber(n) { return n ~ /^[1-9][0-9]*$/ && (n in ids) }
  function report(what) { printf "%s:%d: %s\n    %s\n", FILENAME, FNR, what, raw; found = 1 }

  # The line without comments, strings and character constants; block comments may
  # span lines.
  function code(s,    out, i, c, n, q) {
    out = ""; n = length(s)
    for (i = 1; i <= n; i++) {
      c = substr(s, i, 1)
      if (inComment) {
        if (c == "*" && substr(s, i + 1, 1) == "/") { inComment = 0; i++ }
        continue
      }
      if (c == "/" && substr(s, i + 1, 1) == "/") break
      if (c == "/" && substr(s, i + 1, 1) == "*") { inComment = 1; i++; continue }
      if (c == apos && substr(out, length(out), 1) ~ /[0-9A-Za-z_]/) continue  # digit separator
      if (c == "\"" || c == apos) {
        q = c
        for (i++; i <= n; i++) {
          c = substr(s, i, 1)
          if (c == "\\") i++
          else if (c == q) break
        }
        out = out q q
        continue
      }
      out = out c
    }
    return out
  }

  # The n-th argument of the call whose "(" is at position p.
  function argument(s, p, n,    i, c, depth, k, start) {
    depth = 0; k = 1; start = p + 1
    for (i = p + 1; i <= length(s); i++) {
      c = substr(s, i, 1)
      if (c == "(" || c == "{" || c == "[") depth++
      else if ((c == ")" || c == "}" || c == "]") && depth > 0) depth--
      else if ((c == "," || c == ")") && depth == 0) {
        if (k == n) return substr(s, start, i - start)
        if (c == ")") return ""
        k++; start = i + 1
      }
    }
    return substr(s, start)
  }

  function bareNumber(a) {
    gsub(/[ \t]/, "", a)
    sub(/^static_cast<[A-Za-z_0-9:]+>\(/, "", a)
    sub(/\)$/, "", a)
    sub(/[uU]$/, "", a)
    return a
  }

  function isCommandVariable(v,    l) {
    l = tolower(v)
    return l == "id" || l ~ /(^|_)cmd$/ || l ~ /cmd(id)?$/ || l ~ /command(id)?$/
  }

  # Rule 1: the numbers that a constant or its list elements are set to.
  function typedConstant(s,    rest, num) {
    rest = s
    while (match(rest, /[={,][ \t]*[0-9]+[uU]?[ \t]*([,};]|$)/)) {
      num = substr(rest, RSTART + 1, RLENGTH - 1)
      gsub(/[^0-9]/, "", num)
      if (isCommandNumber(num) && num != 1) report("command number " num " in a constant of commands")
      rest = substr(rest, RSTART + RLENGTH - 1)
    }
  }

  # Rule 2: constants named after a command holding its number.
  function namedConstants(s,    rest, m, name, num, key) {
    rest = s
    while (match(rest, /[A-Za-z_][A-Za-z_0-9]*[ \t]*=[ \t]*[0-9]+/)) {
      m = substr(rest, RSTART, RLENGTH)
      name = m; sub(/[ \t]*=.*/, "", name)
      num = m; sub(/.*=[ \t]*/, "", num)
      key = tolower(name)
      if (!(key in byName)) sub(/^k/, "", key)
      if (!(key in byName)) sub(/(commandid|command|cmd|id)$/, "", key)
      if ((key in byName) && byName[key] == num) report("constant " name " holds the number of command " names[key])
      rest = substr(rest, RSTART + RLENGTH)
    }
  }

  function calls(s,    rest, off, f, n, a) {
    rest = s; off = 0
    while (match(rest, /(execute|setCommandHandler|commandHandler|findCommand|commandName|commandParamKind|commandGroup|commandDescriptionString|recordStep|runCommand|frameCommand)[ \t]*\(/)) {
      f = substr(rest, RSTART, RLENGTH); sub(/[ \t]*\($/, "", f)
      n = (f == "execute" || f == "recordStep" || f == "frameCommand") ? 2 : 1
      a = bareNumber(argument(s, off + RSTART + RLENGTH - 1, n))
      if (isCommandNumber(a)) report("command number " a " given to " f "()")
      off += RSTART + RLENGTH - 1
      rest = substr(rest, RSTART + RLENGTH)
    }
    if (match(s, /CommandCall[ \t]*\{[ \t]*[0-9]+/)) {
      a = substr(s, RSTART, RLENGTH); sub(/.*\{[ \t]*/, "", a)
      if (isCommandNumber(a)) report("command number " a " in a CommandCall")
    }
  }

  function comparisons(s,    rest, m, v, num) {
    rest = s
    while (match(rest, /[A-Za-z_][A-Za-z_0-9]*[ \t]*(==|!=|<=|>=|<|>|-)[ \t]*[0-9]+/)) {
      m = substr(rest, RSTART, RLENGTH)
      v = m; sub(/[ \t]*[=!<>-].*/, "", v)
      num = m; sub(/.*[=!<>-][ \t]*/, "", num)
      if (isCommandVariable(v) && num != "1" && isCommandNumber(num))
        report("command variable " v " compared with command number " num)
      rest = substr(rest, RSTART + RLENGTH)
    }
    rest = s
    while (match(rest, /[0-9]+[ \t]*(==|!=|<=|>=|<|>)[ \t]*[A-Za-z_][A-Za-z_0-9]*/)) {
      m = substr(rest, RSTART, RLENGTH)
      num = m; sub(/[ \t]*[=!<>].*/, "", num)
      v = m; sub(/.*[=!<>][ \t]*/, "", v)
      if (isCommandVariable(v) && num != "1" && isCommandNumber(num))
        report("command number " num " compared with command variable " v)
      rest = substr(rest, RSTART + RLENGTH)
    }
  }

  FNR == NR {
    if ($0 ~ /^ZOL_COMMAND\(/) {
      line = $0; sub(/^ZOL_COMMAND\([ \t]*/, "", line)
      split(line, f, ",")
      name = f[1]; num = f[2]; gsub(/[ \t]/, "", name); gsub(/[ \t]/, "", num)
      ids[num] = 1
      byName[tolower(name)] = num
      names[tolower(name)] = name
    }
    next
  }
  FNR == 1 { inComment = 0; typed = 0; switchOverCommand = 0 }
  {
    raw = $0
    s = code($0)
    if (s ~ /switch[ \t]*\(/) {
      subject = s; sub(/.*switch[ \t]*\(/, "", subject)
      switchOverCommand = tolower(subject) ~ /(^|[^a-z_])id([^a-z_0-9]|$)|cmd|command/
    }
    rest = switchOverCommand ? s : ""
    while (match(rest, /case[ \t]+[0-9]+[ \t]*:/)) {
      num = substr(rest, RSTART, RLENGTH); gsub(/[^0-9]/, "", num)
      if (isCommandNumber(num)) report("case " num " in a switch over commands")
      rest = substr(rest, RSTART + RLENGTH)
    }
    calls(s)
    comparisons(s)
    namedConstants(s)
    # A constant may spread over several lines: it is read up to its ";", each line
    # going on from a list element of the one before.
    if (typed) {
      typedConstant("," s)
    } else if (s ~ /^[ \t]*((static|inline)[ \t]+)*(constexpr|const)[ \t]+(std::)?uint16_t[ \t]/ ||
               s ~ /(^|[^A-Za-z_])enum[^{;]*:[ \t]*(std::)?uint16_t/ ||
               s ~ /^[ \t]*((static|inline)[ \t]+)*(constexpr|const)[ \t][^=(]*(Cmd|Command)[A-Za-z_0-9]*\[[^]]*\][ \t]*=/) {
      typed = 1
      typedConstant(s)
    }
    if (typed && s ~ /;/) typed = 0
  }
  END { exit found }
  ' "$list" "$@"
}

product_files() {  # product_files ROOT
  for d in $folders; do
    [ -d "$1/$d" ] && find "$1/$d" -type f \( -name '*.cpp' -o -name '*.h' -o -name '*.inc' \)
  done | sort
}

if [ "$1" = "--self-test" ]; then
  list=$2
  dir=$(mktemp -d) || exit 2
  trap 'rm -rf "$dir"' EXIT
  # Each line ending in "// flagged" must be reported, and no other.
  cat > "$dir/sample.cpp" <<'EOF'
constexpr uint16_t kInsertChar = 2, kParam1 = 236;  // flagged
constexpr uint16_t kFirstSetMark = 100;  // flagged
constexpr uint16_t kFirstMacro = 1000;
constexpr int kSaveFile = 250;  // flagged
constexpr int kPlugInCommandIdCommand = 311;  // flagged
constexpr int kMaxNesting = 16;
enum : uint16_t {
    kWindowMaximize = 290, kWindowMinimize,  // flagged
};
constexpr uint16_t kVerticalCommands[] = {
    32, 33,  // flagged
};
enum class UndoKind : int32_t { Cut = 4, Paste = 5 };
constexpr ParamCommand kParamCommands[] = {
    {410, false, true},  // flagged
};
constexpr size_t kCommandNameSize = 32;
void install() { setCommandHandler(207, cmdConvertText); }  // flagged
int run(Document& doc) { return execute(*docOf(h), 436, 10); }  // flagged
int other(Document& doc) { return execute(doc, Cmd::GoToLineNum, 10); }
int32_t kindOf(uint16_t id) {
    switch (id) {
        case 123: return 4;  // flagged
        case 6: case 7: return 3;  // flagged
    }
    if (id >= 130 && id <= 138) return 13;  // flagged
    if (cmd == 6) return 3;  // flagged
    if (id < 1 || id > 2000) return 0;
    return 1;
}
int slot(const CommandCall& call) { return call.id - 100; }  // flagged
int mode(int n) {
    switch (n) {
        case 2: return 1;
    }
    return n == 2 ? 5 : 3;
}
const char* text = "case 2: id == 5";
constexpr uint64_t kBudget = 5'000'000;
/* if (id == 120)
   return; */
EOF
  expected=$(grep -n '// flagged' "$dir/sample.cpp" | cut -d: -f1 | sort -n | tr '\n' ' ')
  actual=$(scan "$list" "$dir/sample.cpp" | grep -o '^[^ ]*:[0-9]*:' | cut -d: -f2 | sort -un | tr '\n' ' ')
  if [ "$expected" != "$actual" ]; then
    echo "the check flags lines $actual; it should flag $expected"
    scan "$list" "$dir/sample.cpp"
    exit 1
  fi
  exit 0
fi

root=$1
list=${2:-$root/engine/commands.def}
[ -f "$list" ] || { echo "no command list at $list"; exit 2; }
files=$(product_files "$root" | grep -v '/engine/commands\.def$')
# shellcheck disable=SC2086
if ! scan "$list" $files; then
  echo "Command numbers belong to engine/commands.def; name the command instead (Cmd::Name, idOf(Cmd::Name))."
  exit 1
fi
