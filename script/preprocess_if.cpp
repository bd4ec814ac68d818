// #if and #elif expressions: "defined" settled first, then the line expanded and
// evaluated in 64-bit integers; a name that is still there counts 0. Anything that does
// not evaluate is error 12.
#include <cstdint>
#include <cstdlib>

#include "script/preprocess_state.h"

namespace zol::pp {
namespace {

enum class BinOp { LOr, LAnd, BitOr, Xor, BitAnd, Eq, Ne, Le, Ge, Shl, Shr, Lt, Gt, Add, Sub, Mul, Div, Mod };

// The binary operators, tried in this order; prec 1 binds loosest.
struct BinaryOp {
    const char* text;
    int prec;
    BinOp op;
};
constexpr BinaryOp kBinaryOps[] = {
    {"||", 1, BinOp::LOr}, {"&&", 2, BinOp::LAnd}, {"|", 3, BinOp::BitOr}, {"^", 4, BinOp::Xor},
    {"&", 5, BinOp::BitAnd}, {"==", 6, BinOp::Eq}, {"!=", 6, BinOp::Ne},   {"<=", 7, BinOp::Le},
    {">=", 7, BinOp::Ge},  {"<<", 8, BinOp::Shl}, {">>", 8, BinOp::Shr},  {"<", 7, BinOp::Lt},
    {">", 7, BinOp::Gt},   {"+", 9, BinOp::Add},  {"-", 9, BinOp::Sub},   {"*", 10, BinOp::Mul},
    {"/", 10, BinOp::Div}, {"%", 10, BinOp::Mod},
};

uint64_t u(int64_t v) { return static_cast<uint64_t>(v); }

// l op r, wrapping as unsigned arithmetic does; false for a division that has no value.
bool apply(BinOp op, int64_t l, int64_t r, int64_t* v) {
    switch (op) {
        case BinOp::LOr: *v = l || r; return true;
        case BinOp::LAnd: *v = l && r; return true;
        case BinOp::BitOr: *v = l | r; return true;
        case BinOp::Xor: *v = l ^ r; return true;
        case BinOp::BitAnd: *v = l & r; return true;
        case BinOp::Eq: *v = l == r; return true;
        case BinOp::Ne: *v = l != r; return true;
        case BinOp::Le: *v = l <= r; return true;
        case BinOp::Ge: *v = l >= r; return true;
        case BinOp::Lt: *v = l < r; return true;
        case BinOp::Gt: *v = l > r; return true;
        case BinOp::Shl: *v = static_cast<int64_t>(u(l) << (r & 63)); return true;
        case BinOp::Shr: *v = l >> (r & 63); return true;
        case BinOp::Add: *v = static_cast<int64_t>(u(l) + u(r)); return true;
        case BinOp::Sub: *v = static_cast<int64_t>(u(l) - u(r)); return true;
        case BinOp::Mul: *v = static_cast<int64_t>(u(l) * u(r)); return true;
        case BinOp::Div:
        case BinOp::Mod:
            if (r == 0 || (l == INT64_MIN && r == -1)) return false;
            *v = op == BinOp::Div ? l / r : l % r;
            return true;
    }
    return false;
}

struct IfParser {
    State& pp;
    const std::string& s;
    size_t i = 0;
    int depth = 0;  // unary operators and parentheses open, bounded by kPpMaxIfNesting
    // Operands that "&&", "||" or "?:" leave unevaluated being read: a division by
    // zero in them has no value and needs none.
    int unevaluated = 0;

    [[noreturn]] void bad() { pp.fail(kErrIfExpr); }

    void ws() {
        while (i < s.size() && (std::isspace(static_cast<unsigned char>(s[i])) || s[i] == kPainted)) ++i;
    }

    bool eat(const char* op) {
        ws();
        const size_t n = std::char_traits<char>::length(op);
        if (s.compare(i, n, op) != 0) return false;
        // "<" must not take the first half of "<<" or "<="; likewise for the others.
        if (n == 1 && i + 1 < s.size()) {
            const char a = s[i], b = s[i + 1];
            if ((a == '<' || a == '>') && (b == a || b == '=')) return false;
            if ((a == '&' || a == '|') && b == a) return false;
            if ((a == '=' || a == '!') && b == '=') return false;
        }
        i += n;
        return true;
    }

    // conditional := binary(1) [ "?" conditional ":" conditional ]
    int64_t conditional() {
        const int64_t c = binary(1);
        if (!eat("?")) return c;
        const int64_t a = operand(!c, [&] { return conditional(); });
        if (!eat(":")) bad();
        const int64_t b = operand(c != 0, [&] { return conditional(); });
        return c ? a : b;
    }

    // Reads an operand, unevaluated when `skipped`.
    template <class Read>
    int64_t operand(bool skipped, Read&& read) {
        unevaluated += skipped;
        const int64_t v = read();
        unevaluated -= skipped;
        return v;
    }

    // binary(p) := unary { op binary(prec(op) + 1) }   for the operators with prec(op) >= p
    int64_t binary(int prec) {
        int64_t l = unary();
        for (;;) {
            const BinaryOp* hit = nullptr;
            const size_t save = i;
            for (const BinaryOp& op : kBinaryOps) {
                if (op.prec >= prec && eat(op.text)) {
                    hit = &op;
                    break;
                }
                i = save;
            }
            if (!hit) return l;
            const bool skipped = (hit->op == BinOp::LAnd && !l) || (hit->op == BinOp::LOr && l);
            const int64_t r = operand(skipped, [&] { return binary(hit->prec + 1); });
            if (!apply(hit->op, l, r, &l)) {
                if (!unevaluated) bad();
                l = 0;
            }
        }
    }

    // unary := ( "!" | "-" | "+" | "~" ) unary | primary
    int64_t unary() {
        ws();
        if (i >= s.size() || ++depth > kPpMaxIfNesting) bad();
        struct Leave {
            int& d;
            ~Leave() { --d; }
        } leave{depth};
        if (eat("!")) return !unary();
        if (eat("-")) return static_cast<int64_t>(0 - u(unary()));
        if (eat("+")) return unary();
        if (eat("~")) return ~unary();
        return primary();
    }

    // primary := "(" conditional ")" | number | character | identifier
    int64_t primary() {
        if (eat("(")) {
            const int64_t v = conditional();
            if (!eat(")")) bad();
            return v;
        }
        const char c = s[i];
        if (std::isdigit(static_cast<unsigned char>(c))) return number();
        if (c == '\'') return character();
        if (c == 'L' && i + 1 < s.size() && s[i + 1] == '\'') {  // a wide character: its character's value
            ++i;
            return character();
        }
        if (isIdStart(c)) {
            while (i < s.size() && isIdChar(s[i])) ++i;
            return 0;
        }
        bad();
    }

    // number := digits [ "u" | "U" | "l" | "L" ]...   in C's bases
    int64_t number() {
        char* end = nullptr;
        const int64_t v = static_cast<int64_t>(std::strtoull(s.c_str() + i, &end, 0));
        i = static_cast<size_t>(end - s.c_str());
        while (i < s.size() && (s[i] == 'u' || s[i] == 'U' || s[i] == 'l' || s[i] == 'L')) ++i;
        return v;
    }

    // character := "'" ( char | "\" char ) "'"
    int64_t character() {
        ++i;
        int64_t v = 0;
        if (i < s.size() && s[i] == '\\') {
            ++i;
            const char e = i < s.size() ? s[i] : 0;
            v = e == 'n' ? '\n' : e == 't' ? '\t' : e == '0' ? 0 : e == 'r' ? '\r' : e;
        } else if (i < s.size()) {
            v = static_cast<signed char>(s[i]);
        }
        ++i;
        if (i >= s.size() || s[i] != '\'') bad();
        ++i;
        return v;
    }
};

// Comments inside the expression are dropped.
std::string withoutComments(const std::string& x) {
    std::string clean;
    for (size_t k = 0; k < x.size(); ++k) {
        if (x.compare(k, 2, "/*") == 0) {
            const size_t e = x.find("*/", k + 2);
            if (e == std::string::npos) break;
            k = e + 1;
            clean += ' ';
        } else if (x.compare(k, 2, "//") == 0) {
            break;
        } else {
            clean += x[k];
        }
    }
    return clean;
}

}  // namespace

bool State::evalIf(const std::string& expr) {
    // "defined NAME" and "defined(NAME)" are settled before any expansion.
    std::string pre;
    size_t i = 0;
    while (i < expr.size()) {
        if (!isIdStart(expr[i])) {
            pre += expr[i++];
            continue;
        }
        size_t e = i;
        while (e < expr.size() && isIdChar(expr[e])) ++e;
        if (expr.compare(i, e - i, "defined") != 0) {
            pre.append(expr, i, e - i);
            i = e;
            continue;
        }
        size_t k = e;
        while (k < expr.size() && std::isspace(static_cast<unsigned char>(expr[k]))) ++k;
        const bool paren = k < expr.size() && expr[k] == '(';
        if (paren) ++k;
        while (k < expr.size() && std::isspace(static_cast<unsigned char>(expr[k]))) ++k;
        size_t n = k;
        while (n < expr.size() && isIdChar(expr[n])) ++n;
        if (n == k) fail(kErrIfExpr);
        const bool def = macros.count(expr.substr(k, n - k)) > 0;
        if (paren) {
            while (n < expr.size() && std::isspace(static_cast<unsigned char>(expr[n]))) ++n;
            if (n >= expr.size() || expr[n] != ')') fail(kErrIfExpr);
            ++n;
        }
        pre += def ? " 1 " : " 0 ";
        i = n;
    }
    std::string x;
    std::vector<std::string> disabled;
    bool cm = false;
    if (!expand(pre, disabled, x, cm, 1)) fail(kErrIfExpr);
    const std::string clean = withoutComments(x);
    IfParser ev{*this, clean};
    const int64_t v = ev.conditional();
    ev.ws();
    if (ev.i != clean.size()) fail(kErrIfExpr);
    return v != 0;
}

}  // namespace zol::pp
