// The first two bytes a match can have, found by walking the program as the matcher
// would while ignoring what a byte must be beyond the set it belongs to. Zero-width
// nodes (line start and end, group marks) are stepped over, so the answer may admit
// places that cannot match, never the other way round.
#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "search/regex.h"

namespace zol {
namespace {

using ByteSet = std::array<bool, 256>;

// A place in the program: a node, and how far into it: the byte of an EXACTLY literal
// about to be taken, or for PLUS, 1 once a repetition has been taken. node + sub is
// an offset inside that node, so it names the place alone.
struct Place {
    size_t node;
    size_t sub;
};

struct Places {
    std::vector<Place> list;
    std::vector<bool> seen;  // by node + sub
};

struct LeadWalk {
    const uint8_t* code;
    size_t size;
    bool canEnd = false;  // END was reached: a match can stop here

    const char* operand(size_t node) const { return reinterpret_cast<const char*>(code + node + kNodeHeader); }

    // Adds the places that `from` reaches without taking a byte, itself included.
    void close(Place from, Places& out) {
        if (out.seen.empty()) out.seen.assign(size, false);
        std::vector<Place> todo{from};
        while (!todo.empty()) {
            const Place at = todo.back();
            todo.pop_back();
            // A sequence that stops short of END never matches.
            if (at.node == 0 || out.seen[at.node + at.sub]) continue;
            out.seen[at.node + at.sub] = true;
            const uint8_t op = code[at.node];
            const size_t next = nextNode(code, at.node);
            if (op == kOpEnd) {
                canEnd = true;
            } else if (op == kOpBranch) {
                todo.push_back({at.node + kNodeHeader, 0});
                if (code[next] == kOpBranch) todo.push_back({next, 0});
            } else if (op == kOpStar || (op == kOpPlus && at.sub == 1)) {
                out.list.push_back(at);
                todo.push_back({next, 0});
            } else if (op == kOpBol || op == kOpEol || op == kOpNothing || op == kOpBack ||
                       (op > kOpOpen && op < kOpOpen + kRegexGroups) ||
                       (op > kOpClose && op < kOpClose + kRegexGroups)) {
                todo.push_back({next, 0});
            } else {
                out.list.push_back(at);
            }
        }
    }

    // The bytes one node of a single character takes; for a literal, its byte `sub`.
    void taken(size_t node, size_t sub, ByteSet& set) const {
        const char* arg = operand(node);
        switch (code[node]) {
            case kOpExactly: set[static_cast<unsigned char>(arg[sub])] = true; return;
            case kOpAnyOf:
                for (; *arg; ++arg) set[static_cast<unsigned char>(*arg)] = true;
                return;
            case kOpAny:
            case kOpAnyBut:
                for (int c = 1; c < 256; ++c)
                    if (c != '\n' && (code[node] == kOpAny || !std::strchr(arg, c))) set[c] = true;
                return;
            default: return;
        }
    }

    // The bytes the places take next, and the places after taking one of them.
    void step(const Places& from, ByteSet& bytes, Places& to) {
        for (const Place& p : from.list) {
            const uint8_t op = code[p.node];
            if (op == kOpStar || op == kOpPlus) {
                taken(p.node + kNodeHeader, 0, bytes);
                close({p.node, op == kOpPlus ? 1u : 0u}, to);
            } else if (op == kOpExactly && operand(p.node)[p.sub + 1] != '\0') {
                taken(p.node, p.sub, bytes);
                close({p.node, p.sub + 1}, to);
            } else {
                taken(p.node, p.sub, bytes);
                close({nextNode(code, p.node), 0}, to);
            }
        }
    }
};

}  // namespace

void findLead(RegexProgram& prog) {
    prog.lead = {};
    LeadWalk w{prog.code.data(), prog.code.size()};
    Places start, second, third;
    w.close({1, 0}, start);
    if (w.canEnd) return;  // an empty match can start anywhere
    ByteSet first{}, next{};
    w.step(start, first, second);
    if (std::count(first.begin(), first.end(), true) != 1) return;
    // A match of one byte can be followed by anything.
    if (w.canEnd) next.fill(true);
    else w.step(second, next, third);
    RegexLead& lead = prog.lead;
    lead.first = static_cast<char>(std::find(first.begin(), first.end(), true) - first.begin());
    std::copy(next.begin(), next.end(), lead.next);
    lead.low = static_cast<uint8_t>(std::find(next.begin(), next.end(), true) - next.begin());
    lead.high = static_cast<uint8_t>(next.rend() - std::find(next.rbegin(), next.rend(), true) - 1);
}

}  // namespace zol
