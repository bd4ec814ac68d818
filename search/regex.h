// The regular-expression engine: compile a pattern into a program, run it over a
// NUL-terminated text forwards or backwards, expand a replacement template from the
// last match. Braces group; parentheses are ordinary characters. The engine compares
// bytes exactly: searches without regard to case lower-case pattern and text first.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zol {

// Node kinds. A node is its kind byte, a two-byte offset to the next node of its
// sequence (0: none; BACK counts backwards) and an operand.
enum RegexOp : uint8_t {
    kOpEnd = 0,        // success
    kOpBol = 1,        // a line start
    kOpEol = 2,        // a line end
    kOpAny = 3,        // any character but newline
    kOpAnyOf = 4,      // NUL-terminated set: one character of it
    kOpAnyBut = 5,     // NUL-terminated set: one character not in it, not newline
    kOpBranch = 6,     // operand: one alternative; next: the following BRANCH
    kOpBack = 7,       // loops back to the start of a repetition
    kOpExactly = 8,    // NUL-terminated literal
    kOpNothing = 9,    // the empty string
    kOpStar = 10,      // operand: one single-character node, zero or more times
    kOpPlus = 11,      // operand: one single-character node, one or more times
    kOpOpen = 20,      // 20 + n: start of group n (1..9)
    kOpClose = 30,     // 30 + n: end of group n
};

constexpr uint8_t kRegexMagic = 156;
constexpr int kRegexGroups = 10;        // group 0 is the whole match
constexpr size_t kRegexMaxCode = 32767; // a program of this size or more is refused (error 2)
constexpr size_t kNodeHeader = 3;       // kind byte and two offset bytes

// Backtracking is bounded so that a pathological pattern cannot hang the editor or
// exhaust the stack: the matcher keeps its choice points on the heap, and gives up
// (reporting no match and setting `gaveUp`) after this many steps or choice points
// in one Execute.
constexpr uint64_t kRegexStepBudget = 5'000'000;
constexpr size_t kRegexMaxChoicePoints = 1u << 20;

// Compile errors; the user sees kRegexErrorPrefix followed by the message of the code.
enum RegexError : int {
    kReOk = 0,
    kReNullArgument = 1,
    kReTooBig = 2,
    kReOutOfMemory = 3,
    kReTooManyGroups = 4,
    kReUnmatchedBraces = 5,
    kReEmptyOperand = 6,
    kReNested = 7,
    kReBadRange = 8,
    kReBadEscape = 9,
    kReUnmatchedBracket = 10,
    kReFollowsNothing = 11,
    kReInternal = 12,
    kReUnknown = 13,
};
constexpr const char* kRegexErrorPrefix = "Regular expression error:  ";
constexpr const char* kRegexErrorMessages[] = {
    "",
    "NULL argument",
    "regular expression to big",
    "out of memory",
    "too many {}",
    "umatched {}",
    "*+ operand could be empty",
    "nested *?+",
    "invalid [] range",
    "invalid escape (\\) sequence",
    "unmatched []",
    "?+* follows nothing",
    "internal error",
    "unknown error",
};
// Message of an error code; codes outside the table read as "unknown error".
const char* regexErrorMessage(int code);

// Escapes: the character after "\" at index i of kRegexEscapes stands for the
// character at index i of kRegexEscapeValues.
constexpr const char kRegexEscapes[] = "*+?{}^|.$&\\[]ntbrf";
constexpr const char kRegexEscapeValues[] = "*+?{}^|.$&\\[]\n\t\b\r\f";

// Where a match can begin: at `first`, followed by a byte that `next` holds (every
// byte when a match can be one byte long); those bytes lie in [low, high]. first is 0
// when unknown: a match can be empty or begin with several bytes.
struct RegexLead {
    char first = 0;
    uint8_t low = 0, high = 255;
    uint64_t next[4] = {};  // one bit a byte value

    bool takes(char c) const {
        const auto b = static_cast<unsigned char>(c);
        return next[b >> 6] >> (b & 63) & 1;
    }
};

// A compiled program. groupStart/groupEnd point into the text of the last
// successful Execute (null: group unset); they stay valid only as long as that text.
struct RegexProgram {
    const char* groupStart[kRegexGroups] = {};
    const char* groupEnd[kRegexGroups] = {};
    char firstChar = 0;             // every match begins with it (0: unknown)
    uint8_t anchored = 0;           // non-zero: matches begin only at line starts
    const char* mustText = nullptr; // literal every match contains (points into code), or null
    int mustLength = 0;
    // A literal every match contains, for any pattern without a top-level "|" (null
    // when none is known): a text without it cannot match, which is tested before
    // any matching. It points into code.
    const char* required = nullptr;
    size_t requiredLength = 0;
    bool literalOnly = false;       // the whole pattern is one literal: matched by plain search
    RegexLead lead;
    bool gaveUp = false;            // the last Execute hit the backtracking bound
    // Steps one Execute may take; fuzzing lowers it so that runaway patterns end soon.
    uint64_t stepBudget = kRegexStepBudget;
    std::vector<uint8_t> code;      // code[0] is kRegexMagic, then the nodes

    RegexProgram() = default;
    RegexProgram(const RegexProgram&) = delete;
    RegexProgram& operator=(const RegexProgram&) = delete;
};

// Compiles a pattern. Returns null and a non-zero *error on failure; *error is 0 on
// success. `error` may be null.
std::unique_ptr<RegexProgram> regexCompile(const char* pattern, int* error);

// Fills the program's lead from its code.
void findLead(RegexProgram& prog);

// True when a match can begin at p, as far as the lead tells; p[1] must be readable.
inline bool leadAllows(const RegexProgram& prog, const char* p) {
    return !prog.lead.first || (p[0] == prog.lead.first && prog.lead.takes(p[1]));
}

// Runs the program over a NUL-terminated text. `limit` (null: the end of the text)
// bounds the candidate starts: forwards they run from `text` up to but not including
// `limit`, backwards from `limit` - 1 down to `text`; without a limit the end of the
// text is a candidate too. Returns 1 on a match (groups filled), else 0.
int regexExecute(RegexProgram* prog, const char* text, const char* limit, bool backward,
                 bool textStartIsLineStart);
// The same for a text whose length (up to its terminating NUL) the caller knows.
int regexExecute(RegexProgram* prog, const char* text, size_t length, const char* limit, bool backward,
                 bool textStartIsLineStart);

// Expands a template from the last match into out (size bytes, always terminated
// when size > 0): "&" and "\0".."\9" insert groups, "\u" "\U" "\l" "\L" convert the
// insertion that follows them directly, other escapes give their characters.
void regexSubstitute(const RegexProgram* prog, const char* tmpl, char* out, size_t size);

// The node after node `at` in its sequence, 0 when none.
inline size_t nextNode(const uint8_t* code, size_t at) {
    const size_t off = static_cast<size_t>(code[at + 1]) << 8 | code[at + 2];
    if (off == 0) return 0;
    return code[at] == kOpBack ? at - off : at + off;
}

}  // namespace zol
