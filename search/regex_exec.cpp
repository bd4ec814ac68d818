// Running a program over a text. The matcher backtracks with an explicit stack of
// choice points on the heap instead of recursing, so that neither a long line nor a
// deeply looping pattern can overflow the call stack; a step budget bounds the time.
#include <algorithm>
#include <cstring>
#include <vector>

#include "search/literal_scan.h"
#include "search/regex.h"

namespace zol {
namespace {

enum class ChoiceKind : uint8_t { Alternative, Repeat };

struct Choice {
    ChoiceKind kind;
    uint32_t node;     // Alternative: the BRANCH to try; Repeat: the STAR or PLUS node
    const char* pos;   // input position where the choice was made
    size_t trail;      // group trail height to return to
    size_t count;      // Repeat: the largest count still to try
};

// Group positions overwritten on the way down, restored on backtracking; slots
// 0..9 are starts, 10..19 ends.
struct TrailEntry {
    uint8_t slot;
    const char* old;
};

// Scratch kept between calls so that matching a million lines allocates nothing.
thread_local std::vector<Choice> tChoices;
thread_local std::vector<TrailEntry> tTrail;

// Made once per run over a line. Most lines never reach a candidate start, so whatever
// only an attempt needs is set up at the first attempt rather than here.
struct Matcher {
    Matcher(const uint8_t* c, const char* t, bool atLineStart) : code(c), text(t), lineStart(atLineStart) {}

    // This thread's scratch: in a shared library every use of a thread-local costs a call.
    std::vector<Choice>* choices = nullptr;
    std::vector<TrailEntry>* trail = nullptr;
    const uint8_t* code;
    const char* text;
    bool lineStart;
    // Null at the start of an attempt. Only group marks write them before a match ends,
    // so they are cleared again only after an attempt that passed one.
    const char* slots[2 * kRegexGroups];
    bool slotsDirty = true;
    uint64_t steps = 0;
    uint64_t budget = kRegexStepBudget;
    bool gaveUp = false;

    const char* operand(size_t node) const { return reinterpret_cast<const char*>(code + node + kNodeHeader); }

    // How many times the single-character node matches from p on.
    size_t repeat(size_t node, const char* p) const {
        const char* s = p;
        const char* set = operand(node);
        switch (code[node]) {
            case kOpAny:
                while (*s && *s != '\n') ++s;
                break;
            case kOpExactly:
                while (*s && *s == *set) ++s;
                break;
            case kOpAnyOf:
                while (*s && std::strchr(set, *s)) ++s;
                break;
            case kOpAnyBut:
                while (*s && *s != '\n' && !std::strchr(set, *s)) ++s;
                break;
            default: break;
        }
        return static_cast<size_t>(s - p);
    }

    void record(std::vector<TrailEntry>& trail, int slot, const char* pos) {
        trail.push_back({static_cast<uint8_t>(slot), slots[slot]});
        slots[slot] = pos;
        slotsDirty = true;
    }

    // Largest count in [min, from] after which the repetition can go on, or -1.
    long fitCount(size_t node, const char* start, long from) const {
        const long min = code[node] == kOpPlus ? 1 : 0;
        const size_t next = nextNode(code, node);
        const char lit = next && code[next] == kOpExactly ? *operand(next) : 0;
        for (long c = from; c >= min; --c)
            if (!lit || start[c] == lit) return c;
        return -1;
    }

    bool tryAt(const char* s);
};

bool Matcher::tryAt(const char* s) {
    if (!choices) {
        choices = &tChoices;
        trail = &tTrail;
    }
    std::vector<Choice>& choices = *this->choices;
    std::vector<TrailEntry>& trail = *this->trail;
    if (slotsDirty) {
        for (const char*& p : slots) p = nullptr;
        slotsDirty = false;
    }
    choices.clear();
    trail.clear();
    size_t scan = 1;
    const char* pos = s;
    for (;;) {
        if (++steps > budget || choices.size() > kRegexMaxChoicePoints) {
            gaveUp = true;
            return false;
        }
        const uint8_t op = code[scan];
        size_t next = nextNode(code, scan);
        bool ok = true;
        switch (op) {
            case kOpEnd:
                slots[0] = s;
                slots[kRegexGroups] = pos;
                return true;
            case kOpBol: ok = pos == text ? lineStart : pos[-1] == '\n'; break;
            case kOpEol: ok = *pos == '\0' || *pos == '\n'; break;
            case kOpAny:
                ok = *pos && *pos != '\n';
                ++pos;
                break;
            case kOpAnyOf:
                ok = *pos && std::strchr(operand(scan), *pos);
                ++pos;
                break;
            case kOpAnyBut:
                ok = *pos && *pos != '\n' && !std::strchr(operand(scan), *pos);
                ++pos;
                break;
            case kOpExactly: {
                const char* lit = operand(scan);
                if (*lit != *pos) {
                    ok = false;
                    break;
                }
                // The first byte matched; a single-byte literal needs nothing more.
                if (lit[1] == '\0') {
                    ++pos;
                    break;
                }
                const size_t len = std::strlen(lit);
                ok = std::strncmp(lit, pos, len) == 0;
                pos += len;
                break;
            }
            case kOpNothing:
            case kOpBack: break;
            case kOpBranch:
                if (code[next] == kOpBranch)
                    choices.push_back({ChoiceKind::Alternative, static_cast<uint32_t>(next), pos, trail.size(), 0});
                next = scan + kNodeHeader;
                break;
            case kOpStar:
            case kOpPlus: {
                const long n = static_cast<long>(repeat(scan + kNodeHeader, pos));
                const long c = fitCount(scan, pos, n);
                if (c < 0) {
                    ok = false;
                    break;
                }
                if (c > (op == kOpPlus ? 1 : 0))
                    choices.push_back({ChoiceKind::Repeat, static_cast<uint32_t>(scan), pos, trail.size(),
                                       static_cast<size_t>(c - 1)});
                pos += c;
                break;
            }
            default:
                if (op > kOpOpen && op < kOpOpen + kRegexGroups) record(trail, op - kOpOpen, pos);
                else if (op > kOpClose && op < kOpClose + kRegexGroups) record(trail, kRegexGroups + op - kOpClose, pos);
                else return false;  // not a node kind: a damaged program never matches
                break;
        }
        if (ok && next != 0) {
            scan = next;
            continue;
        }
        // Backtrack to the latest choice point that still has something to offer.
        for (;;) {
            if (choices.empty()) return false;
            if (++steps > budget) {
                gaveUp = true;
                return false;
            }
            Choice ch = choices.back();
            choices.pop_back();
            while (trail.size() > ch.trail) {
                slots[trail.back().slot] = trail.back().old;
                trail.pop_back();
            }
            if (ch.kind == ChoiceKind::Alternative) {
                const size_t after = nextNode(code, ch.node);
                if (after && code[after] == kOpBranch)
                    choices.push_back({ChoiceKind::Alternative, static_cast<uint32_t>(after), ch.pos, ch.trail, 0});
                scan = ch.node + kNodeHeader;
                pos = ch.pos;
                break;
            }
            const long c = fitCount(ch.node, ch.pos, static_cast<long>(ch.count));
            if (c < 0) continue;
            if (c > (code[ch.node] == kOpPlus ? 1 : 0)) {
                ch.count = static_cast<size_t>(c - 1);
                choices.push_back(ch);
            }
            pos = ch.pos + c;
            scan = nextNode(code, ch.node);
            break;
        }
    }
}

}  // namespace

int regexExecute(RegexProgram* prog, const char* text, const char* limit, bool backward,
                 bool textStartIsLineStart) {
    if (!text) return 0;
    return regexExecute(prog, text, std::strlen(text), limit, backward, textStartIsLineStart);
}

int regexExecute(RegexProgram* prog, const char* text, size_t len, const char* limit, bool backward,
                 bool textStartIsLineStart) {
    if (!prog || !text || prog->code.empty() || prog->code[0] != kRegexMagic) return 0;
    prog->gaveUp = false;
    // A match always sets group 0, so its start being null means all groups already are.
    if (prog->groupStart[0])
        for (int i = 0; i < kRegexGroups; ++i) prog->groupStart[i] = prog->groupEnd[i] = nullptr;
    const char* end = text + len;
    const char* last;  // the last candidate start, inclusive
    if (!limit || limit > end) {
        last = end;
    } else {
        if (limit <= text) return 0;
        last = limit - 1;
    }
    if (prog->mustText && !memmem(text, len, prog->mustText, static_cast<size_t>(prog->mustLength))) return 0;

    Matcher m(prog->code.data(), text, textStartIsLineStart);
    m.budget = prog->stepBudget;
    const char first = prog->firstChar;
    auto found = [&]() {
        for (int i = 0; i < kRegexGroups; ++i) {
            prog->groupStart[i] = m.slots[i];
            prog->groupEnd[i] = m.slots[kRegexGroups + i];
        }
        return 1;
    };
    auto stop = [&]() {
        prog->gaveUp = m.gaveUp;
        return m.gaveUp;
    };

    if (prog->literalOnly && !backward) {
        const char* lit = reinterpret_cast<const char*>(prog->code.data() + 1 + 2 * kNodeHeader);
        const size_t litLen = std::strlen(lit);
        // Starts run up to last; the literal may reach past it, not past the end.
        const size_t span = std::min(len, static_cast<size_t>(last - text) + litLen);
        const char* hit = findLiteral(text, span, lit, litLen);
        if (!hit) return 0;
        prog->groupStart[0] = hit;
        prog->groupEnd[0] = hit + litLen;
        return 1;
    }
    if (prog->required && !findLiteral(text, len, prog->required, prog->requiredLength)) return 0;
    if (!backward) {
        if (prog->anchored) {
            for (const char* p = text; p && p <= last;) {
                if (leadAllows(*prog, p) && m.tryAt(p)) return found();
                if (stop()) return 0;
                p = static_cast<const char*>(std::memchr(p, '\n', static_cast<size_t>(end - p)));
                if (p) ++p;
            }
            return 0;
        }
        const char lead = prog->lead.first ? prog->lead.first : first;
        for (const char* p = text; p <= last; ++p) {
            if (lead) {
                p = static_cast<const char*>(std::memchr(p, lead, static_cast<size_t>(last - p) + 1));
                if (!p) return 0;
                if (!leadAllows(*prog, p)) continue;
            }
            if (m.tryAt(p)) return found();
            if (stop()) return 0;
        }
        return 0;
    }
    for (const char* p = last;; --p) {
        const bool candidate = prog->anchored ? (p == text || p[-1] == '\n') : (!first || *p == first) && leadAllows(*prog, p);
        if (candidate) {
            if (m.tryAt(p)) return found();
            if (stop()) return 0;
        }
        if (p == text) return 0;
    }
}

}  // namespace zol
