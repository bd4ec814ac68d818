// Macro expansion: arguments are expanded fully before they are substituted (except
// next to # and ##), the result is rescanned, and a name met again inside its own
// expansion is painted so that it is never expanded, also later.
#include "script/preprocess_state.h"

namespace zol::pp {
namespace {

constexpr int kMaxExpansionDepth = 200;  // kErrMacroArgs: macros expanding into themselves

// Copies a string or character literal starting at in[i]; an unclosed one runs to the end.
size_t copyLiteral(const std::string& in, size_t i, std::string& o) {
    const char q = in[i];
    size_t j = i + 1;
    while (j < in.size() && in[j] != q) {
        if (in[j] == '\\' && j + 1 < in.size()) ++j;
        ++j;
    }
    if (j < in.size()) ++j;
    o.append(in, i, j - i);
    return j;
}

// Collects the arguments of a call whose "(" is at in[i]; returns the index after ")"
// or npos when the text ends first.
size_t collectArgs(const std::string& in, size_t i, std::vector<std::string>& args) {
    int depth = 0;
    std::string cur;
    size_t j = i;
    while (j < in.size()) {
        const char c = in[j];
        if (c == '"' || c == '\'') {
            j = copyLiteral(in, j, cur);
            continue;
        }
        if (c == '(') {
            if (depth++ > 0) cur += c;
        } else if (c == ')') {
            if (--depth == 0) {
                args.push_back(cur);
                return j + 1;
            }
            cur += c;
        } else if (c == ',' && depth == 1) {
            args.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
        ++j;
    }
    return std::string::npos;
}

std::string stringize(const std::string& s) {
    std::string r = "\"";
    for (char c : trim(s)) {
        if (c == '"' || c == '\\') r += '\\';
        r += c;
    }
    return r + "\"";
}

size_t skipSpace(const std::string& s, size_t k) {
    while (k < s.size() && std::isspace(static_cast<unsigned char>(s[k]))) ++k;
    return k;
}

// The body of m with its parameters replaced: by the argument as written next to # and
// ##, else by the argument expanded.
std::string substitute(const Macro& m, const std::vector<std::string>& args, const std::vector<std::string>& expanded) {
    auto paramIndex = [&](const std::string& id) -> int {
        for (size_t k = 0; k < m.params.size(); ++k)
            if (m.params[k] == id) return static_cast<int>(k);
        if (m.variadic && id == "__VA_ARGS__") return static_cast<int>(m.params.size());
        return -1;
    };
    const std::string& b = m.body;
    std::string r;
    bool pasteNext = false;
    size_t i = 0;
    while (i < b.size()) {
        const char c = b[i];
        if (c == '#' && i + 1 < b.size() && b[i + 1] == '#') {
            while (!r.empty() && std::isspace(static_cast<unsigned char>(r.back()))) r.pop_back();
            i = skipSpace(b, i + 2);
            pasteNext = true;
            continue;
        }
        if (c == '#' && m.function) {
            const size_t k = skipSpace(b, i + 1);
            size_t e = k;
            while (e < b.size() && isIdChar(b[e])) ++e;
            const int p = e > k ? paramIndex(b.substr(k, e - k)) : -1;
            if (p >= 0) {
                r += stringize(args[static_cast<size_t>(p)]);
                i = e;
                pasteNext = false;
                continue;
            }
        }
        if (c == '"' || c == '\'') {
            i = copyLiteral(b, i, r);
            pasteNext = false;
            continue;
        }
        if (isIdStart(c)) {
            size_t e = i;
            while (e < b.size() && isIdChar(b[e])) ++e;
            const std::string id = b.substr(i, e - i);
            const int p = paramIndex(id);
            if (p < 0) {
                r += id;
            } else {
                const size_t n = skipSpace(b, e);
                const bool pasteAfter = n + 1 < b.size() && b[n] == '#' && b[n + 1] == '#';
                r += (pasteNext || pasteAfter) ? trim(args[static_cast<size_t>(p)]) : expanded[static_cast<size_t>(p)];
            }
            i = e;
            pasteNext = false;
            continue;
        }
        r += c;
        pasteNext = false;
        ++i;
    }
    return r;
}

bool startsNumber(const std::string& in, size_t i) {
    const char c = in[i];
    return std::isdigit(static_cast<unsigned char>(c)) ||
           (c == '.' && i + 1 < in.size() && std::isdigit(static_cast<unsigned char>(in[i + 1])));
}

// The end of the number at in[i], exponent signs included.
size_t numberEnd(const std::string& in, size_t i) {
    size_t e = i + 1;
    while (e < in.size() &&
           (isIdChar(in[e]) || in[e] == '.' ||
            ((in[e] == '+' || in[e] == '-') &&
             (in[e - 1] == 'e' || in[e - 1] == 'E' || in[e - 1] == 'p' || in[e - 1] == 'P'))))
        ++e;
    return e;
}

// Copies what expansion leaves alone at in[i]: comments, literals, numbers, painted
// names, any character that starts no name. Returns the index after it, i itself when a
// name starts there, or npos when the rest of in was copied.
size_t copyInert(const std::string& in, size_t i, std::string& o, bool& comment) {
    const char c = in[i];
    if (comment) {
        const size_t e = in.find("*/", i);
        if (e == std::string::npos) {
            o.append(in, i, std::string::npos);
            return std::string::npos;
        }
        o.append(in, i, e + 2 - i);
        comment = false;
        return e + 2;
    }
    if (c == '/' && i + 1 < in.size() && in[i + 1] == '*') {
        comment = true;
        o += "/*";
        return i + 2;
    }
    if (c == '/' && i + 1 < in.size() && in[i + 1] == '/') {
        o.append(in, i, std::string::npos);
        return std::string::npos;
    }
    if (c == '"' || c == '\'') return copyLiteral(in, i, o);
    size_t e = i + 1;
    if (startsNumber(in, i)) {
        e = numberEnd(in, i);
    } else if (c == kPainted) {
        // A name that met itself during an expansion stays as it is for good.
        while (e < in.size() && isIdChar(in[e])) ++e;
    } else if (isIdStart(c)) {
        return i;
    }
    o.append(in, i, e - i);
    return e;
}

// Fits a call's arguments to m's parameters: "()" is no argument, the variadic rest is
// one; any other count that differs is error 8.
bool fitArguments(const Macro& m, std::vector<std::string>& args) {
    if (args.size() == 1 && m.params.empty() && !m.variadic && trim(args[0]).empty()) args.clear();
    if (!m.variadic) return args.size() == m.params.size();
    while (args.size() < m.params.size() + 1) args.emplace_back();
    std::string rest;
    for (size_t k = m.params.size(); k < args.size(); ++k) rest += (k > m.params.size() ? "," : "") + args[k];
    args.resize(m.params.size() + 1);
    args.back() = rest;
    return true;
}

}  // namespace

std::string trim(const std::string& s) {
    size_t a = 0, b = s.size();
    while (a < b && std::isspace(static_cast<unsigned char>(s[a]))) ++a;
    while (b > a && std::isspace(static_cast<unsigned char>(s[b - 1]))) --b;
    return s.substr(a, b - a);
}

bool State::expand(const std::string& in, std::vector<std::string>& disabled, std::string& o, bool& comment,
                   int depth) {
    if (depth > kMaxExpansionDepth) fail(kErrMacroArgs);
    size_t i = 0;
    while (i < in.size()) {
        if (o.size() > static_cast<size_t>(kExpandedTextSize)) fail(kErrFileTooLarge);
        const size_t next = copyInert(in, i, o, comment);
        if (next == std::string::npos) return true;
        if (next != i) {
            i = next;
            continue;
        }
        i = expandName(in, i, disabled, o, depth);
        if (i == std::string::npos) return false;
    }
    return true;
}

// Expands the name at in[i]; returns the index after it (and after a macro call's
// arguments), or npos when the call is left open at the end of a line.
size_t State::expandName(const std::string& in, size_t i, std::vector<std::string>& disabled, std::string& o,
                         int depth) {
    size_t e = i;
    while (e < in.size() && isIdChar(in[e])) ++e;
    const std::string id = in.substr(i, e - i);
    const auto it = macros.find(id);
    if (it == macros.end() && (id == "__LINE__" || id == "__FILE__")) {
        // The two dynamic names of C, unless a script defined them itself.
        o += id == "__LINE__" ? std::to_string(line) : stringize(scriptFileNameOf(out, file));
        return e;
    }
    bool off = it == macros.end();
    bool painted = false;
    for (const auto& d : disabled)
        if (d == id) off = painted = true;
    if (off) {
        if (painted) o += kPainted;
        o += id;
        return e;
    }
    if (!it->second.function) {
        disabled.push_back(id);
        bool cm = false;
        expand(it->second.body, disabled, o, cm, depth + 1);
        disabled.pop_back();
        return e;
    }
    size_t p = e;
    while (p < in.size() && (in[p] == ' ' || in[p] == '\t')) ++p;
    if (p >= in.size() && depth == 0) return std::string::npos;
    if (p >= in.size() || in[p] != '(') {
        o += id;
        return e;
    }
    // The macro goes by copy: the map may rehash while its body expands.
    return expandCall(in, p, id, it->second, disabled, o, depth);
}

// Expands the call of function-like macro id whose "(" is at in[p].
size_t State::expandCall(const std::string& in, size_t p, const std::string& id, Macro m,
                         std::vector<std::string>& disabled, std::string& o, int depth) {
    std::vector<std::string> args;
    const size_t after = collectArgs(in, p, args);
    if (after == std::string::npos) {
        if (depth == 0) return std::string::npos;
        fail(kErrMacroArgs);
    }
    if (!fitArguments(m, args)) fail(kErrMacroArgs);
    std::vector<std::string> expanded(args.size());
    for (size_t k = 0; k < args.size(); ++k) {
        bool cm = false;
        expand(args[k], disabled, expanded[k], cm, depth + 1);
    }
    const std::string body = substitute(m, args, expanded);
    disabled.push_back(id);
    bool cm = false;
    expand(body, disabled, o, cm, depth + 1);
    disabled.pop_back();
    return after;
}

}  // namespace zol::pp
