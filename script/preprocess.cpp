#include "script/preprocess.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <unordered_map>

#include "platform/file_io.h"
#include "platform/paths.h"
#include "script/errors.h"

namespace zol {
namespace {

struct Macro {
    bool function = false;
    bool variadic = false;
    std::vector<std::string> params;
    std::string body;
};

struct Level {
    bool skipping;      // lines at this level are dropped
    bool outerSkipping; // the level was opened inside a skipped level
    bool taken;         // some branch of the level was taken
};

// Directive codes, the table sorted by name.
struct Directive {
    const char* name;
    int code;
};
constexpr Directive kDirectives[] = {
    {"define", 1}, {"elif", 3},    {"else", 2},     {"endif", 4},  {"error", 5},   {"if", 6},
    {"ifdef", 7},  {"ifndef", 8},  {"include", 9},  {"line", 10},  {"pragma", 11}, {"undef", 12},
};

// Marks a macro name that must not be expanded again; removed from the final text.
constexpr char kPainted = '\x01';

bool isIdStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) || c == '_'; }
bool isIdChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

struct Pp {
    PreprocessOutput& out;
    std::string mainFolder;
    std::string includeDir;
    std::unordered_map<std::string, Macro> macros;
    std::vector<Level> levels;
    int includeDepth = 0;
    int file = 0;
    int line = 0;
    int outFile = 0;
    int outLine = 1;
    bool inComment = false;

    explicit Pp(PreprocessOutput& o) : out(o) {}

    [[noreturn]] void fail(int code) { raiseScriptError(code, file, line); }

    bool skipping() const { return !levels.empty() && levels.back().skipping; }

    void define(const std::string& name, Macro m) {
        if (macros.count(name)) fail(kErrMacroRedefined);
        if (macros.size() >= static_cast<size_t>(kPpMaxMacros)) fail(kErrTooManyDefines);
        macros.emplace(name, std::move(m));
    }

    void emit(const std::string& text, int lines) {
        if ((file != outFile || line != outLine) && !inComment) {
            char marker[40];
            std::snprintf(marker, sizeof marker, "\n/*%d:%d*/", file, line);
            out.text += marker;
            outFile = file;
            outLine = line;
        }
        out.text += text;
        out.text += '\n';
        outLine += lines;
        if (out.text.size() > static_cast<size_t>(kExpandedTextSize)) fail(kErrFileTooLarge);
    }

    // ---- macro expansion ----

    // Copies a string or character literal starting at in[i]; an unclosed one runs to the end.
    static size_t copyLiteral(const std::string& in, size_t i, std::string& o) {
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
    static size_t collectArgs(const std::string& in, size_t i, std::vector<std::string>& args) {
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

    static std::string trim(const std::string& s) {
        size_t a = 0, b = s.size();
        while (a < b && std::isspace(static_cast<unsigned char>(s[a]))) ++a;
        while (b > a && std::isspace(static_cast<unsigned char>(s[b - 1]))) --b;
        return s.substr(a, b - a);
    }

    static std::string stringize(const std::string& s) {
        std::string r = "\"";
        for (char c : trim(s)) {
            if (c == '"' || c == '\\') r += '\\';
            r += c;
        }
        return r + "\"";
    }

    std::string substitute(const Macro& m, std::vector<std::string>& args, std::vector<const std::string*>& off) {
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
        auto nextNonSpace = [&](size_t k) {
            while (k < b.size() && std::isspace(static_cast<unsigned char>(b[k]))) ++k;
            return k;
        };
        while (i < b.size()) {
            const char c = b[i];
            if (c == '#' && i + 1 < b.size() && b[i + 1] == '#') {
                while (!r.empty() && std::isspace(static_cast<unsigned char>(r.back()))) r.pop_back();
                i = nextNonSpace(i + 2);
                pasteNext = true;
                continue;
            }
            if (c == '#' && m.function) {
                size_t k = nextNonSpace(i + 1);
                size_t e = k;
                while (e < b.size() && isIdChar(b[e])) ++e;
                const int p = e > k ? paramIndex(b.substr(k, e - k)) : -1;
                if (p >= 0) {
                    r += stringize(args[p]);
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
                    const size_t n = nextNonSpace(e);
                    const bool pasteAfter = n + 1 < b.size() && b[n] == '#' && b[n + 1] == '#';
                    r += (pasteNext || pasteAfter) ? trim(args[p]) : *off[p];
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

    // Expands in into o. disabled holds the macros being expanded (not expanded again).
    // Returns false when a call of a function-like macro is left open at the end of in.
    bool expand(const std::string& in, std::vector<std::string>& disabled, std::string& o, bool& comment,
                int depth) {
        if (depth > 200) fail(kErrMacroArgs);
        size_t i = 0;
        while (i < in.size()) {
            if (o.size() > static_cast<size_t>(kExpandedTextSize)) fail(kErrFileTooLarge);
            const char c = in[i];
            if (comment) {
                const size_t e = in.find("*/", i);
                if (e == std::string::npos) {
                    o.append(in, i, std::string::npos);
                    return true;
                }
                o.append(in, i, e + 2 - i);
                i = e + 2;
                comment = false;
                continue;
            }
            if (c == '/' && i + 1 < in.size() && in[i + 1] == '*') {
                comment = true;
                o += "/*";
                i += 2;
                continue;
            }
            if (c == '/' && i + 1 < in.size() && in[i + 1] == '/') {
                o.append(in, i, std::string::npos);
                return true;
            }
            if (c == '"' || c == '\'') {
                i = copyLiteral(in, i, o);
                continue;
            }
            if (std::isdigit(static_cast<unsigned char>(c)) ||
                (c == '.' && i + 1 < in.size() && std::isdigit(static_cast<unsigned char>(in[i + 1])))) {
                size_t e = i + 1;
                while (e < in.size() && (isIdChar(in[e]) || in[e] == '.' ||
                                         ((in[e] == '+' || in[e] == '-') &&
                                          (in[e - 1] == 'e' || in[e - 1] == 'E' || in[e - 1] == 'p' ||
                                           in[e - 1] == 'P'))))
                    ++e;
                o.append(in, i, e - i);
                i = e;
                continue;
            }
            if (c == kPainted) {
                // A name that met itself during an expansion stays as it is for good.
                size_t e = i + 1;
                while (e < in.size() && isIdChar(in[e])) ++e;
                o.append(in, i, e - i);
                i = e;
                continue;
            }
            if (!isIdStart(c)) {
                o += c;
                ++i;
                continue;
            }
            size_t e = i;
            while (e < in.size() && isIdChar(in[e])) ++e;
            const std::string id = in.substr(i, e - i);
            auto it = macros.find(id);
            if (it == macros.end() && (id == "__LINE__" || id == "__FILE__")) {
                // The two dynamic names of C, unless a script defined them itself.
                o += id == "__LINE__" ? std::to_string(line) : stringize(scriptFileNameOf(out, file));
                i = e;
                continue;
            }
            bool off = it == macros.end();
            bool painted = false;
            for (const auto& d : disabled)
                if (d == id) off = painted = true;
            if (off) {
                if (painted) o += kPainted;
                o += id;
                i = e;
                continue;
            }
            const Macro& m = it->second;
            if (!m.function) {
                disabled.push_back(id);
                bool cm = false;
                expand(m.body, disabled, o, cm, depth + 1);
                disabled.pop_back();
                i = e;
                continue;
            }
            size_t p = e;
            while (p < in.size() && (in[p] == ' ' || in[p] == '\t')) ++p;
            if (p >= in.size() && depth == 0) return false;
            if (p >= in.size() || in[p] != '(') {
                o += id;
                i = e;
                continue;
            }
            std::vector<std::string> args;
            const size_t after = collectArgs(in, p, args);
            if (after == std::string::npos) {
                if (depth == 0) return false;
                fail(kErrMacroArgs);
            }
            if (args.size() == 1 && m.params.empty() && !m.variadic && trim(args[0]).empty()) args.clear();
            if (m.variadic) {
                while (args.size() < m.params.size() + 1) args.emplace_back();
                std::string rest;
                for (size_t k = m.params.size(); k < args.size(); ++k) rest += (k > m.params.size() ? "," : "") + args[k];
                args.resize(m.params.size() + 1);
                args.back() = rest;
            } else if (args.size() != m.params.size()) {
                fail(kErrMacroArgs);
            }
            std::vector<std::string> expanded(args.size());
            std::vector<const std::string*> ptrs(args.size());
            for (size_t k = 0; k < args.size(); ++k) {
                bool cm = false;
                expand(args[k], disabled, expanded[k], cm, depth + 1);
                ptrs[k] = &expanded[k];
            }
            const Macro copy = m;  // a nested #undef cannot happen, but the map may rehash
            const std::string body = substitute(copy, args, ptrs);
            disabled.push_back(id);
            bool cm = false;
            expand(body, disabled, o, cm, depth + 1);
            disabled.pop_back();
            i = after;
        }
        return true;
    }

    // ---- #if expressions ----

    struct IfEval {
        Pp& pp;
        const std::string& s;
        size_t i = 0;
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
        int depth = 0;
        [[noreturn]] void bad() { pp.fail(kErrIfExpr); }
        int64_t primary() {
            ws();
            if (i >= s.size() || ++depth > kPpMaxIfNesting) bad();
            struct Leave {
                int& d;
                ~Leave() { --d; }
            } leave{depth};
            if (eat("(")) {
                const int64_t v = cond();
                if (!eat(")")) bad();
                return v;
            }
            if (eat("!")) return !unary();
            if (eat("-")) return -unary();
            if (eat("+")) return unary();
            if (eat("~")) return ~unary();
            const char c = s[i];
            if (std::isdigit(static_cast<unsigned char>(c))) {
                char* end = nullptr;
                const int64_t v = static_cast<int64_t>(std::strtoull(s.c_str() + i, &end, 0));
                i = static_cast<size_t>(end - s.c_str());
                while (i < s.size() && (s[i] == 'u' || s[i] == 'U' || s[i] == 'l' || s[i] == 'L')) ++i;
                return v;
            }
            if (c == '\'') {
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
            if (isIdStart(c)) {
                while (i < s.size() && isIdChar(s[i])) ++i;
                return 0;
            }
            bad();
        }
        int64_t unary() { return primary(); }
        int64_t binary(int prec) {
            int64_t l = unary();
            for (;;) {
                struct Op { const char* t; int p; };
                static const Op ops[] = {{"||", 1}, {"&&", 2}, {"|", 3}, {"^", 4}, {"&", 5}, {"==", 6}, {"!=", 6},
                                         {"<=", 7}, {">=", 7}, {"<<", 8}, {">>", 8}, {"<", 7}, {">", 7},
                                         {"+", 9},  {"-", 9},  {"*", 10}, {"/", 10}, {"%", 10}};
                const Op* hit = nullptr;
                const size_t save = i;
                for (const Op& op : ops) {
                    if (op.p >= prec && eat(op.t)) {
                        hit = &op;
                        break;
                    }
                    i = save;
                }
                if (!hit) return l;
                const int64_t r = binary(hit->p + 1);
                const std::string t = hit->t;
                if (t == "||") l = l || r; else if (t == "&&") l = l && r;
                else if (t == "|") l |= r; else if (t == "^") l ^= r; else if (t == "&") l &= r;
                else if (t == "==") l = l == r; else if (t == "!=") l = l != r;
                else if (t == "<=") l = l <= r; else if (t == ">=") l = l >= r;
                else if (t == "<") l = l < r; else if (t == ">") l = l > r;
                else if (t == "<<") l = static_cast<int64_t>(static_cast<uint64_t>(l) << (r & 63));
                else if (t == ">>") l >>= (r & 63);
                else if (t == "+") l = static_cast<int64_t>(static_cast<uint64_t>(l) + static_cast<uint64_t>(r));
                else if (t == "-") l = static_cast<int64_t>(static_cast<uint64_t>(l) - static_cast<uint64_t>(r));
                else if (t == "*") l = static_cast<int64_t>(static_cast<uint64_t>(l) * static_cast<uint64_t>(r));
                else {
                    if (r == 0 || (l == INT64_MIN && r == -1)) bad();
                    l = t == "/" ? l / r : l % r;
                }
            }
        }
        int64_t cond() {
            const int64_t c = binary(1);
            if (eat("?")) {
                const int64_t a = cond();
                if (!eat(":")) bad();
                const int64_t b = cond();
                return c ? a : b;
            }
            return c;
        }
    };

    bool evalIf(const std::string& expr) {
        // "defined NAME" and "defined(NAME)" are settled before any expansion.
        std::string pre;
        size_t i = 0;
        while (i < expr.size()) {
            if (isIdStart(expr[i])) {
                size_t e = i;
                while (e < expr.size() && isIdChar(expr[e])) ++e;
                const std::string id = expr.substr(i, e - i);
                if (id != "defined") {
                    pre += id;
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
                continue;
            }
            pre += expr[i++];
        }
        std::string x;
        std::vector<std::string> disabled;
        bool cm = false;
        if (!expand(pre, disabled, x, cm, 1)) fail(kErrIfExpr);
        // Comments inside the expression are dropped.
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
        IfEval ev{*this, clean};
        const int64_t v = ev.cond();
        ev.ws();
        if (ev.i != clean.size()) fail(kErrIfExpr);
        return v != 0;
    }

    void openLevel(bool cond) {
        if (static_cast<int>(levels.size()) >= kPpMaxIfLevels) fail(kErrIfDepth);
        const bool outer = skipping();
        levels.push_back(Level{outer || !cond, outer, !outer && cond});
    }

    // ---- directives ----

    static std::string readName(const std::string& s, size_t& i) {
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
        const size_t b = i;
        while (i < s.size() && isIdChar(s[i])) ++i;
        return s.substr(b, i - b);
    }

    void doDefine(const std::string& s, size_t i) {
        const std::string name = readName(s, i);
        if (name.empty() || !isIdStart(name[0])) fail(kErrDefine);
        Macro m;
        if (i < s.size() && s[i] == '(') {
            m.function = true;
            const size_t close = s.find(')', i);
            if (close == std::string::npos) fail(kErrMissingRParen);
            std::string list = s.substr(i + 1, close - i - 1);
            size_t k = 0;
            while (k <= list.size()) {
                size_t c = list.find(',', k);
                if (c == std::string::npos) c = list.size();
                const std::string p = trim(list.substr(k, c - k));
                if (p == "...") {
                    m.variadic = true;
                } else if (!p.empty()) {
                    if (m.variadic) fail(kErrDefine);
                    m.params.push_back(p);
                } else if (c < list.size() || !m.params.empty()) {
                    fail(kErrDefine);
                }
                if (m.params.size() > static_cast<size_t>(kPpMaxMacroParams)) fail(kErrTooManyMacroParams);
                k = c + 1;
            }
            i = close + 1;
        }
        m.body = trim(s.substr(i));
        define(name, std::move(m));
    }

    void doInclude(const std::string& s, size_t i) {
        if (includeDepth >= kPpMaxIncludeDepth) fail(kErrIncludeDepth);
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
        if (i >= s.size() || (s[i] != '"' && s[i] != '<')) fail(kErrUnknownDirective);
        const char close = s[i] == '"' ? '"' : '>';
        const bool quoted = close == '"';
        size_t e = i + 1;
        auto ok = [](char c) {
            return std::isalnum(static_cast<unsigned char>(c)) || std::string_view("._\\/$-").find(c) != std::string_view::npos;
        };
        while (e < s.size() && ok(s[e])) ++e;
        if (e >= s.size() || s[e] != close || e == i + 1) fail(kErrUnknownDirective);
        std::string name = s.substr(i + 1, e - i - 1);
        std::string rel = name;
        for (char& c : rel)
            if (c == '\\') c = '/';
        const std::string path = quoted ? (mainFolder.empty() ? rel : joinPath(mainFolder, rel)) : joinPath(includeDir, rel);
        std::string text;
        if (!readWholeFile(path, text)) fail(kErrIncludeOpen);
        if (text.size() > static_cast<size_t>(kExpandedTextSize) * 64) fail(kErrFileTooLarge);
        out.fileNames.push_back(name);
        const int savedFile = file, savedLine = line;
        const bool savedComment = inComment;
        ++includeDepth;
        file = static_cast<int>(out.fileNames.size()) - 1;
        inComment = false;
        run(text);
        --includeDepth;
        file = savedFile;
        line = savedLine;
        inComment = savedComment;
    }

    // Handles a directive line; s starts after "#".
    void directive(const std::string& s) {
        size_t i = 0;
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
        const size_t b = i;
        while (i < s.size() && std::isalpha(static_cast<unsigned char>(s[i]))) ++i;
        const std::string word = s.substr(b, i - b);
        if (word.empty()) {
            if (trim(s.substr(i)).empty()) return;
            fail(kErrUnknownDirective);
        }
        int code = 0;
        for (const Directive& d : kDirectives)
            if (word == d.name) code = d.code;
        if (code == 0) fail(kErrUnknownDirective);
        switch (code) {
            case 1:
                if (!skipping()) doDefine(s, i);
                break;
            case 2:
                if (levels.empty()) fail(kErrElse);
                {
                    Level& l = levels.back();
                    l.skipping = l.outerSkipping || l.taken;
                    l.taken = true;
                }
                break;
            case 3:
                if (levels.empty()) fail(kErrElif);
                {
                    Level& l = levels.back();
                    if (l.outerSkipping || l.taken) {
                        l.skipping = true;
                    } else {
                        const bool v = evalIf(s.substr(i));
                        l.skipping = !v;
                        l.taken = v;
                    }
                }
                break;
            case 4:
                if (levels.empty()) fail(kErrEndif);
                levels.pop_back();
                break;
            case 5:
                if (!skipping()) fail(kErrErrorDirective);
                break;
            case 6:
                openLevel(skipping() ? false : evalIf(s.substr(i)));
                break;
            case 7:
            case 8: {
                const std::string name = readName(s, i);
                if (!skipping() && name.empty()) fail(kErrIfExpr);
                const bool def = macros.count(name) > 0;
                openLevel(code == 7 ? def : !def);
                break;
            }
            case 9:
                if (!skipping()) doInclude(s, i);
                break;
            case 12:
                if (!skipping()) macros.erase(readName(s, i));
                break;
            default:
                break;  // #line and #pragma have no effect
        }
    }

    static bool blankOnly(const std::string& s) {
        for (char c : s)
            if (c != ' ' && c != '\t') return false;
        return true;
    }

    // Runs the line loop over one file's text.
    void run(const std::string& text) {
        size_t pos = 0;
        line = 0;
        const size_t n = text.size();
        auto readLine = [&](std::string& l, int& count) -> bool {
            if (pos >= n) return false;
            l.clear();
            count = 0;
            for (;;) {
                size_t e = text.find('\n', pos);
                if (e == std::string::npos) e = n;
                size_t len = e - pos;
                if (len > 0 && text[pos + len - 1] == '\r') --len;
                ++count;
                if (len + 1 > static_cast<size_t>(kPpLineMax)) {
                    line += count;
                    fail(kErrLineTooLong);
                }
                l.append(text, pos, len);
                pos = e + 1;
                if (!l.empty() && l.back() == '\\' && pos < n) {
                    l.pop_back();
                    continue;
                }
                if (l.size() + 1 > static_cast<size_t>(kPpLineMax)) {
                    line += count;
                    fail(kErrLineTooLong);
                }
                return true;
            }
        };
        std::string l;
        int count = 0;
        while (readLine(l, count)) {
            ++line;
            const int first = line;
            line += count - 1;
            size_t i = 0;
            while (i < l.size() && (l[i] == ' ' || l[i] == '\t')) ++i;
            if (!inComment && i < l.size() && l[i] == '#') {
                const int save = line;
                line = first;
                directive(l.substr(i + 1));
                line = save;
                continue;
            }
            if (skipping()) continue;
            std::string expanded;
            std::vector<std::string> disabled;
            bool comment = inComment;
            std::string joined = l;
            int lines = count;
            // A call of a function-like macro may run over several lines.
            while (!expand(joined, disabled, expanded, comment, 0)) {
                std::string more;
                int c2 = 0;
                if (!readLine(more, c2)) fail(kErrMacroArgs);
                joined += ' ';
                joined += more;
                lines += c2;
                line += c2;
                expanded.clear();
                comment = inComment;
            }
            expanded.erase(std::remove(expanded.begin(), expanded.end(), kPainted), expanded.end());
            const int save = line;
            line = first;
            emit(blankOnly(expanded) ? std::string() : expanded, lines);
            line = save;
            inComment = comment;
        }
    }
};

}  // namespace

void preprocess(const std::string& mainPath, const std::string& mainText, const std::string& includeDir,
                PreprocessOutput& out) {
    out.text.clear();
    out.fileNames.assign(1, mainPath);
    Pp pp(out);
    pp.mainFolder = std::string(folderPart(mainPath));
    pp.includeDir = includeDir;
    pp.define("__VEKC__", Macro{false, false, {}, "0x105"});
    pp.define("__32BIT__", Macro{});
    char num[16];
    std::snprintf(num, sizeof num, "%d", 110);
    pp.define("__JBUFSIZE__", Macro{false, false, {}, num});
    std::snprintf(num, sizeof num, "%d", 1312);
    pp.define("__BCC__", Macro{false, false, {}, num});
    if (mainText.size() > static_cast<size_t>(kExpandedTextSize) * 64) raiseScriptError(kErrFileTooLarge, 0, 1);
    pp.line = 1;
    pp.run(mainText);
    if (!pp.levels.empty()) pp.fail(kErrIfEof);
}

std::string scriptFileNameOf(const PreprocessOutput& pp, int n) {
    if (n == 0) {
        const std::string& p = pp.fileNames.empty() ? std::string() : pp.fileNames[0];
        if (!hasFolderPart(p)) return "mainfile";
        return std::string(fileNamePart(p));
    }
    if (n < 0 || static_cast<size_t>(n) >= pp.fileNames.size()) return "xxx.xxx";
    return pp.fileNames[static_cast<size_t>(n)];
}

}  // namespace zol
