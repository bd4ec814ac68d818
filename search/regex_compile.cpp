// Pattern to program, in two passes over the pattern: the first only measures the
// code, the second emits it into a block of exactly that size.
#include <cstring>
#include <new>

#include "search/regex.h"

namespace zol {
namespace {

constexpr const char* kMeta = "^$.[{}|?+*\\";
inline bool isRepeat(char c) { return c == '*' || c == '+' || c == '?'; }

// What a parsed piece can be.
enum : int {
    kWorst = 0,
    kHasWidth = 1,  // never matches the empty string
    kSimple = 2,    // one character wide: STAR and PLUS can take it directly
    kSpStart = 4,   // starts with a "*" or "+" repetition
};

// The parse state of one compilation; nothing survives the call.
struct Compiler {
    const char* parse;
    int groups = 1;
    bool emitting = false;
    size_t size = 1;              // measuring pass: code bytes counted so far
    std::vector<uint8_t>* code = nullptr;
    int error = kReOk;

    size_t fail(int e) {
        if (error == kReOk) error = e;
        return 0;
    }

    size_t here() const { return emitting ? code->size() : size; }

    size_t node(uint8_t op) {
        const size_t at = here();
        if (emitting) {
            code->push_back(op);
            code->push_back(0);
            code->push_back(0);
        } else {
            size += kNodeHeader;
        }
        return at;
    }

    void byte(uint8_t b) {
        if (emitting) code->push_back(b);
        else ++size;
    }

    // Puts a node in front of the operand that starts at `at`.
    void insert(uint8_t op, size_t at) {
        if (!emitting) {
            size += kNodeHeader;
            return;
        }
        const uint8_t head[kNodeHeader] = {op, 0, 0};
        code->insert(code->begin() + static_cast<std::ptrdiff_t>(at), head, head + kNodeHeader);
    }

    // Links the last node of the chain starting at p to `target`.
    void tail(size_t p, size_t target) {
        if (!emitting || p == 0) return;
        size_t scan = p;
        for (size_t n; (n = nextNode(code->data(), scan)) != 0;) scan = n;
        const size_t off = (*code)[scan] == kOpBack ? scan - target : target - scan;
        (*code)[scan + 1] = static_cast<uint8_t>(off >> 8);
        (*code)[scan + 2] = static_cast<uint8_t>(off & 0xFF);
    }

    // tail() on the operand of a BRANCH; nothing for other nodes.
    void operandTail(size_t p, size_t target) {
        if (!emitting || p == 0 || (*code)[p] != kOpBranch) return;
        tail(p + kNodeHeader, target);
    }

    size_t alternation(bool group, int& flags);
    size_t branch(int& flags);
    size_t piece(int& flags);
    size_t atom(int& flags);
    size_t set(int& flags);
    bool escape(char& out);
};

// Reads the character after a "\" (parse stands on it).
bool Compiler::escape(char& out) {
    const char c = *parse;
    const char* at = c ? std::strchr(kRegexEscapes, c) : nullptr;
    if (!at) return false;
    out = kRegexEscapeValues[at - kRegexEscapes];
    ++parse;
    return true;
}

size_t Compiler::alternation(bool group, int& flags) {
    flags = kHasWidth;
    size_t ret = 0;
    int number = 0;
    if (group) {
        if (groups >= kRegexGroups) return fail(kReTooManyGroups);
        number = groups++;
        ret = node(static_cast<uint8_t>(kOpOpen + number));
    }
    int f;
    size_t br = branch(f);
    if (!br) return 0;
    if (ret) tail(ret, br);
    else ret = br;
    if (!(f & kHasWidth)) flags &= ~kHasWidth;
    flags |= f & kSpStart;
    while (*parse == '|') {
        ++parse;
        br = branch(f);
        if (!br) return 0;
        tail(ret, br);
        if (!(f & kHasWidth)) flags &= ~kHasWidth;
        flags |= f & kSpStart;
    }
    const size_t ender = node(group ? static_cast<uint8_t>(kOpClose + number) : static_cast<uint8_t>(kOpEnd));
    tail(ret, ender);
    if (emitting)
        for (size_t b = ret; b != 0; b = nextNode(code->data(), b)) operandTail(b, ender);
    if (group) {
        if (*parse != '}') return fail(kReUnmatchedBraces);
        ++parse;
    } else if (*parse != '\0') {
        return fail(*parse == '}' ? kReUnmatchedBraces : kReInternal);
    }
    return ret;
}

size_t Compiler::branch(int& flags) {
    flags = kWorst;
    const size_t ret = node(kOpBranch);
    size_t chain = 0;
    while (*parse != '\0' && *parse != '|' && *parse != '}') {
        int f;
        const size_t latest = piece(f);
        if (!latest) return 0;
        flags |= f & kHasWidth;
        if (chain == 0) flags |= f & kSpStart;
        else tail(chain, latest);
        chain = latest;
    }
    if (chain == 0) node(kOpNothing);
    return ret;
}

size_t Compiler::piece(int& flags) {
    int f;
    const size_t ret = atom(f);
    if (!ret) return 0;
    const char op = *parse;
    if (!isRepeat(op)) {
        flags = f;
        return ret;
    }
    if (!(f & kHasWidth) && op != '?') return fail(kReEmptyOperand);
    flags = op == '?' ? kWorst : op == '*' ? (kWorst | kSpStart) : (kHasWidth | kSpStart);
    if (op == '*' && (f & kSimple)) {
        insert(kOpStar, ret);
    } else if (op == '*') {
        // x* : BRANCH(x BACK) BRANCH(NOTHING)
        insert(kOpBranch, ret);
        operandTail(ret, node(kOpBack));
        operandTail(ret, ret);
        tail(ret, node(kOpBranch));
        tail(ret, node(kOpNothing));
    } else if (op == '+' && (f & kSimple)) {
        insert(kOpPlus, ret);
    } else if (op == '+') {
        // x+ : x BRANCH(BACK) BRANCH(NOTHING)
        const size_t next = node(kOpBranch);
        tail(ret, next);
        tail(node(kOpBack), ret);
        tail(next, node(kOpBranch));
        tail(ret, node(kOpNothing));
    } else {
        // x? : BRANCH(x) BRANCH(NOTHING)
        insert(kOpBranch, ret);
        tail(ret, node(kOpBranch));
        const size_t next = node(kOpNothing);
        tail(ret, next);
        operandTail(ret, next);
    }
    ++parse;
    if (isRepeat(*parse)) return fail(kReNested);
    return ret;
}

size_t Compiler::set(int& flags) {
    size_t ret;
    if (*parse == '^') {
        ret = node(kOpAnyBut);
        ++parse;
    } else {
        ret = node(kOpAnyOf);
    }
    unsigned prev = 0;
    if (*parse == ']' || *parse == '-') {
        prev = static_cast<unsigned char>(*parse);
        byte(static_cast<uint8_t>(*parse++));
    }
    while (*parse != '\0' && *parse != ']') {
        char c = *parse++;
        if (c == '-' && *parse != ']' && *parse != '\0') {
            char last = *parse++;
            if (last == '\\' && !escape(last)) return fail(kReBadEscape);
            const unsigned end = static_cast<unsigned char>(last);
            if (prev > end) return fail(kReBadRange);
            for (unsigned ch = prev + 1; ch <= end; ++ch) byte(static_cast<uint8_t>(ch));
            prev = end;
            continue;
        }
        if (c == '\\' && !escape(c)) return fail(kReBadEscape);
        prev = static_cast<unsigned char>(c);
        byte(static_cast<uint8_t>(c));
    }
    byte(0);
    if (*parse != ']') return fail(kReUnmatchedBracket);
    ++parse;
    flags = kHasWidth | kSimple;
    return ret;
}

size_t Compiler::atom(int& flags) {
    flags = kWorst;
    const char c = *parse++;
    switch (c) {
        case '^': return node(kOpBol);
        case '$': return node(kOpEol);
        case '.':
            flags = kHasWidth | kSimple;
            return node(kOpAny);
        case '[': return set(flags);
        case '{': {
            int f;
            const size_t ret = alternation(true, f);
            if (!ret) return 0;
            flags |= f & (kHasWidth | kSpStart);
            return ret;
        }
        case '\0': case '|': case '}': return fail(kReInternal);  // branch() stops before these
        case '?': case '+': case '*': return fail(kReFollowsNothing);
        case '\\': {
            char value;
            if (!escape(value)) return fail(kReBadEscape);
            const size_t ret = node(kOpExactly);
            byte(static_cast<uint8_t>(value));
            byte(0);
            flags = kHasWidth | kSimple;
            return ret;
        }
        default: {
            --parse;
            size_t len = std::strcspn(parse, kMeta);
            // "abc*" repeats only the "c".
            if (len > 1 && isRepeat(parse[len])) --len;
            const size_t ret = node(kOpExactly);
            for (size_t i = 0; i < len; ++i) byte(static_cast<uint8_t>(*parse++));
            byte(0);
            flags = kHasWidth | (len == 1 ? kSimple : 0);
            return ret;
        }
    }
}

// The longest literal of the top-level sequence starting at scan: every match passes
// each of its nodes, and a "+" of a one-character literal takes that character at
// least once. A group of one alternative is part of the sequence (its end links to
// what follows the group); nodes inside alternatives and loops are not on the way.
void findRequired(RegexProgram& prog, size_t scan) {
    const uint8_t* code = prog.code.data();
    bool alternatives = false;  // scan is a later alternative of a chain of them
    while (scan != 0) {
        if (code[scan] == kOpBranch) {
            const bool more = code[nextNode(code, scan)] == kOpBranch;
            if (!alternatives && !more) {
                scan += kNodeHeader;
                continue;
            }
            alternatives = more;
            scan = nextNode(code, scan);
            continue;
        }
        size_t at = scan;
        if (code[scan] == kOpPlus && code[scan + kNodeHeader] == kOpExactly) at = scan + kNodeHeader;
        if (code[at] == kOpExactly) {
            const char* text = reinterpret_cast<const char*>(code + at + kNodeHeader);
            const size_t n = at != scan ? 1 : std::strlen(text);
            if (n >= prog.requiredLength) {  // the later of equally long ones, as for mustText
                prog.required = text;
                prog.requiredLength = n;
            }
        }
        scan = nextNode(code, scan);
    }
}

// firstChar, anchoring, mustText and the required literal, for a pattern without a
// top-level "|".
void findShortcuts(RegexProgram& prog, int flags) {
    const uint8_t* code = prog.code.data();
    const size_t first = 1;
    if (code[nextNode(code, first)] != kOpEnd) return;
    size_t scan = first + kNodeHeader;
    findRequired(prog, scan);
    if (code[scan] == kOpExactly) prog.firstChar = static_cast<char>(code[scan + kNodeHeader]);
    else if (code[scan] == kOpBol) prog.anchored = 1;
    if (code[scan] == kOpExactly && code[nextNode(code, scan)] == kOpEnd) prog.literalOnly = true;
    if (flags & kSpStart) {
        const char* longest = nullptr;
        size_t len = 0;
        for (; scan != 0; scan = nextNode(code, scan)) {
            if (code[scan] != kOpExactly) continue;
            const char* text = reinterpret_cast<const char*>(code + scan + kNodeHeader);
            const size_t n = std::strlen(text);
            if (n >= len) {
                longest = text;
                len = n;
            }
        }
        prog.mustText = longest;
        prog.mustLength = static_cast<int>(len);
    }
}

}  // namespace

const char* regexErrorMessage(int code) {
    constexpr int count = static_cast<int>(sizeof kRegexErrorMessages / sizeof kRegexErrorMessages[0]);
    return code > 0 && code < count ? kRegexErrorMessages[code] : kRegexErrorMessages[kReUnknown];
}

std::unique_ptr<RegexProgram> regexCompile(const char* pattern, int* error) {
    int dummy;
    int& err = error ? *error : dummy;
    err = kReOk;
    if (!pattern) {
        err = kReNullArgument;
        return nullptr;
    }
    Compiler measure;
    measure.parse = pattern;
    int flags;
    if (!measure.alternation(false, flags)) {
        err = measure.error != kReOk ? measure.error : kReInternal;
        return nullptr;
    }
    if (measure.size >= kRegexMaxCode) {
        err = kReTooBig;
        return nullptr;
    }
    std::unique_ptr<RegexProgram> prog(new (std::nothrow) RegexProgram);
    if (!prog) {
        err = kReOutOfMemory;
        return nullptr;
    }
    try {
        prog->code.reserve(measure.size);
    } catch (const std::bad_alloc&) {
        err = kReOutOfMemory;
        return nullptr;
    }
    prog->code.push_back(kRegexMagic);
    Compiler emit;
    emit.parse = pattern;
    emit.emitting = true;
    emit.code = &prog->code;
    if (!emit.alternation(false, flags) || prog->code.size() != measure.size) {
        err = emit.error != kReOk ? emit.error : kReInternal;
        return nullptr;
    }
    findShortcuts(*prog, flags);
    findLead(*prog);
    return prog;
}

}  // namespace zol
