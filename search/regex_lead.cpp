// The first two bytes a match can have, found by walking the program as the matcher
// would while ignoring what a byte must be beyond the set it belongs to. Zero-width
// nodes (line start and end, group marks) are stepped over, so the answer may admit
// places that cannot match, never the other way round.
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <vector>

#include "search/regex.h"

namespace zol {
namespace {

// 256 bits, one a byte value.
struct ByteSet {
    uint64_t bits[4] = {};
    void add(unsigned c) { bits[c >> 6] |= uint64_t{1} << (c & 63); }
    int count() const {
        int n = 0;
        for (uint64_t b : bits) n += __builtin_popcountll(b);
        return n;
    }
    unsigned lowest() const {
        for (unsigned i = 0; i < 4; ++i)
            if (bits[i]) return i * 64 + static_cast<unsigned>(__builtin_ctzll(bits[i]));
        return 0;
    }
    unsigned highest() const {
        for (unsigned i = 4; i-- > 0;)
            if (bits[i]) return i * 64 + 63 - static_cast<unsigned>(__builtin_clzll(bits[i]));
        return 255;
    }
};

// A place in the program: a node, and how far into it: the byte of an EXACTLY literal
// about to be taken, or for PLUS, 1 once a repetition has been taken. node + sub is
// an offset inside that node, so it names the place alone.
struct Place {
    size_t node;
    size_t sub;
};

// Kept between compilations: a string search compiles its pattern at every call.
struct LeadScratch {
    std::vector<Place> places;  // where a match starts, then where it is after one byte
    std::vector<uint8_t> seen;  // by node + sub, one bit for each of the two lists
    std::vector<Place> todo;
};
thread_local LeadScratch tScratch;

struct LeadWalk {
    const uint8_t* code;
    LeadScratch& w;
    bool canEnd = false;  // END was reached: a match can stop here

    const char* operand(size_t node) const { return reinterpret_cast<const char*>(code + node + kNodeHeader); }

    // Adds the places that `from` reaches without taking a byte, itself included, to
    // the list marked by `list`.
    void close(Place from, uint8_t list) {
        w.todo.assign(1, from);
        while (!w.todo.empty()) {
            const Place at = w.todo.back();
            w.todo.pop_back();
            // A sequence that stops short of END never matches.
            if (at.node == 0 || (w.seen[at.node + at.sub] & list)) continue;
            w.seen[at.node + at.sub] |= list;
            const uint8_t op = code[at.node];
            const size_t next = nextNode(code, at.node);
            if (op == kOpEnd) {
                canEnd = true;
            } else if (op == kOpBranch) {
                w.todo.push_back({at.node + kNodeHeader, 0});
                if (code[next] == kOpBranch) w.todo.push_back({next, 0});
            } else if (op == kOpStar || (op == kOpPlus && at.sub == 1)) {
                w.places.push_back(at);
                w.todo.push_back({next, 0});
            } else if (op == kOpBol || op == kOpEol || op == kOpNothing || op == kOpBack ||
                       (op > kOpOpen && op < kOpOpen + kRegexGroups) ||
                       (op > kOpClose && op < kOpClose + kRegexGroups)) {
                w.todo.push_back({next, 0});
            } else {
                w.places.push_back(at);
            }
        }
    }

    // The bytes one node of a single character takes; for a literal, its byte `sub`.
    void taken(size_t node, size_t sub, ByteSet& set) const {
        const char* arg = operand(node);
        switch (code[node]) {
            case kOpExactly: set.add(static_cast<unsigned char>(arg[sub])); return;
            case kOpAnyOf:
                for (; *arg; ++arg) set.add(static_cast<unsigned char>(*arg));
                return;
            case kOpAny:
            case kOpAnyBut: {
                // Every byte but NUL and newline, less the set's own.
                ByteSet all{{~uint64_t{0} ^ 1 ^ uint64_t{1} << '\n', ~uint64_t{0}, ~uint64_t{0}, ~uint64_t{0}}};
                for (; code[node] == kOpAnyBut && *arg; ++arg) {
                    const auto c = static_cast<unsigned char>(*arg);
                    all.bits[c >> 6] &= ~(uint64_t{1} << (c & 63));
                }
                for (int i = 0; i < 4; ++i) set.bits[i] |= all.bits[i];
                return;
            }
            default: return;
        }
    }

    // The bytes that the places [from, to) take next; with `list`, the places after
    // taking one of them join that list.
    void step(size_t from, size_t to, ByteSet& bytes, uint8_t list) {
        for (size_t i = from; i < to; ++i) {
            const Place p = w.places[i];
            const uint8_t op = code[p.node];
            const bool repeat = op == kOpStar || op == kOpPlus;
            const bool inLiteral = op == kOpExactly && operand(p.node)[p.sub + 1] != '\0';
            taken(repeat ? p.node + kNodeHeader : p.node, repeat ? 0 : p.sub, bytes);
            if (!list) continue;
            if (repeat) close({p.node, op == kOpPlus ? 1u : 0u}, list);
            else if (inLiteral) close({p.node, p.sub + 1}, list);
            else close({nextNode(code, p.node), 0}, list);
        }
    }
};

}  // namespace

void findLead(RegexProgram& prog) {
    prog.lead = {};
    LeadScratch& scratch = tScratch;
    scratch.places.clear();
    scratch.seen.assign(prog.code.size(), 0);
    LeadWalk w{prog.code.data(), scratch};
    w.close({1, 0}, 1);
    if (w.canEnd) return;  // an empty match can start anywhere
    const size_t starts = scratch.places.size();
    ByteSet first, next;
    w.step(0, starts, first, 2);
    if (first.count() != 1) return;
    // A match of one byte can be followed by anything.
    if (w.canEnd) next = ByteSet{{~uint64_t{0}, ~uint64_t{0}, ~uint64_t{0}, ~uint64_t{0}}};
    else w.step(starts, scratch.places.size(), next, 0);
    RegexLead& lead = prog.lead;
    lead.first = static_cast<char>(first.lowest());
    std::copy(std::begin(next.bits), std::end(next.bits), lead.next);
    lead.low = static_cast<uint8_t>(next.lowest());
    lead.high = static_cast<uint8_t>(next.highest());
}

}  // namespace zol
