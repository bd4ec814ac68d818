// Thousands of generated patterns and subjects run through the engine and through a
// slow reference matcher written here from the dialect's rules, comparing whether,
// where and with which groups they match, forwards and backwards.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "search/regex.h"

namespace zol {
namespace {

// The reference works on a syntax tree that the generator builds; the pattern text
// is rendered from the tree, so the engine's parser is tested too.
struct Node {
    enum Kind { Lit, Any, Set, NotSet, Bol, Eol, Group, Alt, Seq, Star, Plus, Opt } kind;
    char c;
    std::string set;
    int group;
    std::vector<Node> kids;

    Node(Kind k, char ch = 0, std::string s = {}, int g = 0, std::vector<Node> kd = {})
        : kind(k), c(ch), set(std::move(s)), group(g), kids(std::move(kd)) {}
};

std::string render(const Node& n) {
    switch (n.kind) {
        case Node::Lit:
            if (n.c == '\n') return "\\n";
            return (std::strchr(".*{", n.c) ? "\\" : "") + std::string(1, n.c);
        case Node::Any: return ".";
        case Node::Set: return "[" + n.set + "]";
        case Node::NotSet: return "[^" + n.set + "]";
        case Node::Bol: return "^";
        case Node::Eol: return "$";
        case Node::Group: return "{" + render(n.kids[0]) + "}";
        case Node::Alt:
        case Node::Seq: {
            std::string s;
            for (size_t i = 0; i < n.kids.size(); ++i) s += (i && n.kind == Node::Alt ? "|" : "") + render(n.kids[i]);
            return s;
        }
        case Node::Star: return render(n.kids[0]) + "*";
        case Node::Plus: return render(n.kids[0]) + "+";
        case Node::Opt: return render(n.kids[0]) + "?";
    }
    return "";
}

// The members of a set as the generator writes them ("a-c", "\n" as an escape).
bool inSet(const std::string& set, char ch) {
    for (size_t i = 0; i < set.size(); ++i) {
        if (set[i] == '\\' && i + 1 < set.size() && set[i + 1] == 'n') {
            if (ch == '\n') return true;
            ++i;
        } else if (i + 2 < set.size() && set[i + 1] == '-') {
            if (ch >= set[i] && ch <= set[i + 2]) return true;
            i += 2;
        } else if (set[i] == ch) {
            return true;
        }
    }
    return false;
}

// The reference: continuation-passing backtracking that follows the rules as they
// are written, including recording a group only once the rest of the match has
// succeeded and only if it is not recorded yet.
struct Reference {
    std::string text;
    bool lineStart = true;
    int start[kRegexGroups], end[kRegexGroups];

    using Cont = std::function<bool(size_t)>;

    bool m(const Node& n, size_t p, const Cont& k) {
        const size_t len = text.size();
        switch (n.kind) {
            case Node::Lit: return p < len && text[p] == n.c && k(p + 1);
            case Node::Any: return p < len && text[p] != '\n' && k(p + 1);
            case Node::Set: return p < len && inSet(n.set, text[p]) && k(p + 1);
            case Node::NotSet: return p < len && text[p] != '\n' && !inSet(n.set, text[p]) && k(p + 1);
            case Node::Bol: return (p == 0 ? lineStart : text[p - 1] == '\n') && k(p);
            case Node::Eol: return (p == len || text[p] == '\n') && k(p);
            case Node::Group: {
                const int g = n.group;
                const bool ok = m(n.kids[0], p, [&](size_t e) {
                    if (!k(e)) return false;
                    if (end[g] < 0) end[g] = static_cast<int>(e);
                    return true;
                });
                if (ok && start[g] < 0) start[g] = static_cast<int>(p);
                return ok;
            }
            case Node::Alt:
                for (const Node& alt : n.kids)
                    if (m(alt, p, k)) return true;
                return false;
            case Node::Seq: return seq(n, 0, p, k);
            case Node::Star: return m(n.kids[0], p, [&](size_t q) { return m(n, q, k); }) || k(p);
            case Node::Plus: {
                const Node star{Node::Star, 0, {}, 0, n.kids};
                return m(n.kids[0], p, [&](size_t q) { return m(star, q, k); });
            }
            case Node::Opt: return m(n.kids[0], p, k) || k(p);
        }
        return false;
    }
    bool seq(const Node& n, size_t i, size_t p, const Cont& k) {
        if (i == n.kids.size()) return k(p);
        return m(n.kids[i], p, [&](size_t q) { return seq(n, i + 1, q, k); });
    }
    bool tryAt(const Node& root, size_t p) {
        for (int g = 0; g < kRegexGroups; ++g) start[g] = end[g] = -1;
        size_t matchEnd = 0;
        if (!m(root, p, [&](size_t e) {
                matchEnd = e;
                return true;
            }))
            return false;
        start[0] = static_cast<int>(p);
        end[0] = static_cast<int>(matchEnd);
        return true;
    }
    // Candidates as Execute takes them; last is inclusive.
    bool search(const Node& root, bool backward, size_t last) {
        if (!backward) {
            for (size_t p = 0; p <= last; ++p)
                if (tryAt(root, p)) return true;
            return false;
        }
        for (size_t p = last + 1; p-- > 0;)
            if (tryAt(root, p)) return true;
        return false;
    }
};

// A node can match nothing when it matches the empty text at a line's start.
bool canBeEmpty(const Node& n) { return Reference{}.tryAt(n, 0); }

class Generator {
public:
    explicit Generator(uint32_t seed) : rng_(seed) {}

    Node pattern() {
        groups_ = 0;
        return alternation(3);
    }
    std::string subject() {
        static const char alphabet[] = "aaabbbc\n.(";
        std::string s(pick(10), ' ');
        for (char& c : s) c = alphabet[pick(sizeof alphabet - 1)];
        return s;
    }

private:
    size_t pick(size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(rng_); }

    Node alternation(int depth) {
        Node n{Node::Alt};
        const size_t count = pick(6) == 0 ? 2 : 1;
        for (size_t i = 0; i < count; ++i) n.kids.push_back(sequence(depth));
        return n;
    }
    Node sequence(int depth) {
        Node n{Node::Seq};
        const size_t count = pick(4) + (depth == 3 ? 1 : 0);
        for (size_t i = 0; i < count; ++i) n.kids.push_back(piece(depth));
        return n;
    }
    Node piece(int depth) {
        Node a = atom(depth);
        const bool anchor = a.kind == Node::Bol || a.kind == Node::Eol;
        const size_t q = pick(7);
        if (q < 2 && !canBeEmpty(a)) return Node{q == 0 ? Node::Star : Node::Plus, 0, {}, 0, {a}};
        if (q == 2 && (!anchor || pick(3) == 0)) return Node{Node::Opt, 0, {}, 0, {a}};
        return a;
    }
    Node atom(int depth) {
        switch (pick(depth > 0 ? 12 : 10)) {
            case 0: return Node{Node::Any};
            case 1: return Node{Node::Set, 0, pick(2) ? "a-b" : "c\\n"};
            case 2: return Node{Node::NotSet, 0, pick(2) ? "a" : "b-c"};
            case 3: return Node{pick(2) ? Node::Bol : Node::Eol};
            case 4: {
                static const char specials[] = ".\n(*{";
                return Node{Node::Lit, specials[pick(sizeof specials - 1)]};
            }
            case 10:
            case 11:
                if (groups_ < 9) {
                    Node g{Node::Group};
                    g.group = ++groups_;
                    g.kids.push_back(alternation(depth - 1));
                    return g;
                }
                [[fallthrough]];
            default: return Node{Node::Lit, static_cast<char>('a' + pick(3))};
        }
    }

    std::mt19937 rng_;
    int groups_ = 0;
};

TEST(RegexDifferential, EngineAgreesWithTheReference) {
    Generator gen(20261121);
    int compared = 0, matched = 0, leadChecked = 0;
    for (int i = 0; i < 2500; ++i) {
        const Node root = gen.pattern();
        const std::string pattern = render(root);
        int err = -1;
        auto prog = regexCompile(pattern.c_str(), &err);
        ASSERT_TRUE(prog) << "pattern " << pattern << " error " << err;
        for (int j = 0; j < 4; ++j) {
            Reference ref;
            ref.text = gen.subject();
            const size_t len = ref.text.size();
            const bool backward = j % 2 == 1;
            ref.lineStart = j != 2;
            // Half the runs bound the candidates with a limit.
            const size_t limit = j >= 2 && len > 0 ? (len + 1) / 2 : std::string::npos;
            const size_t last = limit == std::string::npos ? len : limit - 1;
            const char* text = ref.text.c_str();
            const int got = regexExecute(prog.get(), text, limit == std::string::npos ? nullptr : text + limit,
                                         backward, ref.lineStart);
            const bool want = ref.search(root, backward, last);
            // The lead is a filter on match starts: it must admit every place a match begins.
            Reference probe = ref;
            for (size_t p = 0; prog->lead.first && p <= len; ++p) {
                if (!probe.tryAt(root, p)) continue;
                ++leadChecked;
                ASSERT_TRUE(leadAllows(*prog, text + p)) << "pattern " << pattern << " text \"" << ref.text
                                                         << "\" start " << p;
            }
            ++compared;
            ASSERT_EQ(got == 1, want) << "pattern " << pattern << " text \"" << ref.text << "\" backward "
                                      << backward;
            if (!want) continue;
            ++matched;
            for (int g = 0; g < kRegexGroups; ++g) {
                auto at = [text](const char* p) { return p ? static_cast<int>(p - text) : -1; };
                ASSERT_EQ(std::pair(at(prog->groupStart[g]), at(prog->groupEnd[g])),
                          std::pair(ref.start[g], ref.end[g]))
                    << "group " << g << " pattern " << pattern << " text \"" << ref.text << "\"";
            }
        }
    }
    // The generator must produce both outcomes in quantity for the comparison to mean much.
    EXPECT_GT(matched, compared / 5);
    EXPECT_LT(matched, compared * 4 / 5);
    EXPECT_GT(leadChecked, 1000);
}

}  // namespace
}  // namespace zol
