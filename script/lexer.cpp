#include "script/lexer.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>

#include "script/errors.h"
#include "script/tokens.h"

namespace zol {

int SymbolTable::find(const std::string& name) const {
    auto it = std::lower_bound(sorted.begin(), sorted.end(), name,
                               [](const auto& e, const std::string& n) { return e.first < n; });
    return it != sorted.end() && it->first == name ? it->second : 0;
}

int SymbolTable::intern(const std::string& name) {
    auto it = std::lower_bound(sorted.begin(), sorted.end(), name,
                               [](const auto& e, const std::string& n) { return e.first < n; });
    if (it != sorted.end() && it->first == name) return it->second;
    if (sorted.size() >= static_cast<size_t>(kMaxSymbols)) return 0;
    names.push_back(name);
    const int num = static_cast<int>(names.size());
    sorted.insert(it, {name, num});
    return num;
}

namespace {

bool isIdStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) || c == '_'; }
bool isIdChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

struct Lexer {
    const std::string& s;
    TokenStream& out;
    size_t i = 0;
    int file = 0;
    int line = 1;
    size_t bytes = 0;  // size the token stream takes in the token buffer

    [[noreturn]] void fail(int code) { raiseScriptError(code, file, line); }

    void push(Token t, size_t size) {
        bytes += size;
        if (bytes + 2 > static_cast<size_t>(kTokenBufferSize)) fail(kErrFileTooLarge);
        t.file = static_cast<uint16_t>(file);
        t.line = line;
        out.toks.push_back(t);
    }

    // One character of a string or character constant, escapes decoded.
    int charValue() {
        char c = s[i++];
        if (c != '\\') return static_cast<unsigned char>(c);
        if (i >= s.size() || s[i] == '\n') fail(kErrUnterminatedString);
        c = s[i++];
        switch (c) {
            case 'n': return '\n';
            case 't': return '\t';
            case 'r': return '\r';
            case 'a': return '\a';
            case 'b': return '\b';
            case 'f': return '\f';
            case 'v': return '\v';
            case 'x': {
                int v = 0, n = 0;
                while (i < s.size() && std::isxdigit(static_cast<unsigned char>(s[i]))) {
                    const char h = s[i++];
                    v = v * 16 + (std::isdigit(static_cast<unsigned char>(h)) ? h - '0' : (std::tolower(h) - 'a' + 10));
                    ++n;
                }
                return n ? (v & 0xff) : 'x';
            }
            default:
                if (c >= '0' && c <= '7') {
                    int v = c - '0';
                    for (int k = 0; k < 2 && i < s.size() && s[i] >= '0' && s[i] <= '7'; ++k) v = v * 8 + (s[i++] - '0');
                    return v & 0xff;
                }
                return static_cast<unsigned char>(c);
        }
    }

    void number() {
        const char* b = s.c_str() + i;
        size_t e = i;
        bool real = false;
        if (s[e] == '0' && e + 1 < s.size() && (s[e + 1] == 'x' || s[e + 1] == 'X')) {
            e += 2;
            while (e < s.size() && std::isxdigit(static_cast<unsigned char>(s[e]))) ++e;
        } else {
            while (e < s.size() && std::isdigit(static_cast<unsigned char>(s[e]))) ++e;
            if (e < s.size() && s[e] == '.') {
                real = true;
                ++e;
                while (e < s.size() && std::isdigit(static_cast<unsigned char>(s[e]))) ++e;
            }
            if (e < s.size() && (s[e] == 'e' || s[e] == 'E')) {
                size_t k = e + 1;
                if (k < s.size() && (s[k] == '+' || s[k] == '-')) ++k;
                if (k < s.size() && std::isdigit(static_cast<unsigned char>(s[k]))) {
                    real = true;
                    e = k;
                    while (e < s.size() && std::isdigit(static_cast<unsigned char>(s[e]))) ++e;
                }
            }
        }
        Token t;
        if (real) {
            t.code = kTokReal;
            t.d = std::strtod(b, nullptr);
            t.kind = kNumDouble;
            if (e < s.size() && (s[e] == 'f' || s[e] == 'F')) {
                t.kind = kNumFloat;
                ++e;
            } else if (e < s.size() && (s[e] == 'l' || s[e] == 'L')) {
                ++e;
            }
        } else {
            const bool decimal = s[i] != '0';
            bool bad = false;
            for (const char* p = b; p < s.c_str() + e; ++p)
                if (!decimal && s[i + 1] != 'x' && s[i + 1] != 'X' && (*p == '8' || *p == '9')) bad = true;
            if (bad) fail(kErrSyntax);
            const unsigned long long v = std::strtoull(std::string(b, s.c_str() + e).c_str(), nullptr, 0);
            bool u = false;
            int l = 0;
            while (e < s.size() && (s[e] == 'u' || s[e] == 'U' || s[e] == 'l' || s[e] == 'L')) {
                if (s[e] == 'u' || s[e] == 'U') u = true; else ++l;
                ++e;
            }
            t.code = kTokNumber;
            t.i = static_cast<int64_t>(v);
            if (v > 0xffffffffULL || l >= 2) {
                t.kind = u || v > 0x7fffffffffffffffULL ? kNumULLong : kNumLLong;
            } else if (u) {
                t.kind = l ? kNumULong : kNumUInt;
            } else if (v <= 0x7fffffffULL) {
                t.kind = l ? kNumLong : kNumInt;
            } else {
                t.kind = decimal ? kNumULong : (l ? kNumULong : kNumUInt);
            }
        }
        if (e < s.size() && (isIdChar(s[e]) || s[e] == '.')) fail(kErrSyntax);
        i = e;
        push(t, 9);
    }

    void run() {
        while (i < s.size()) {
            const char c = s[i];
            if (c == '\n') {
                ++line;
                ++i;
                continue;
            }
            if (c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v') {
                ++i;
                continue;
            }
            if (c == '/' && i + 1 < s.size() && s[i + 1] == '*') {
                // A line marker "/*file:line*/" names where the following text came from.
                size_t k = i + 2;
                size_t d1 = k;
                while (k < s.size() && std::isdigit(static_cast<unsigned char>(s[k]))) ++k;
                if (k > d1 && k < s.size() && s[k] == ':') {
                    size_t d2 = ++k;
                    while (k < s.size() && std::isdigit(static_cast<unsigned char>(s[k]))) ++k;
                    if (k > d2 && s.compare(k, 2, "*/") == 0) {
                        file = std::atoi(s.c_str() + d1);
                        line = std::atoi(s.c_str() + d2);
                        i = k + 2;
                        continue;
                    }
                }
                const size_t e = s.find("*/", i + 2);
                if (e == std::string::npos) {
                    for (size_t p = i; p < s.size(); ++p) line += s[p] == '\n';
                    fail(kErrEofInComment);
                }
                for (size_t p = i; p < e; ++p) line += s[p] == '\n';
                i = e + 2;
                continue;
            }
            if (c == '/' && i + 1 < s.size() && s[i + 1] == '/') {
                while (i < s.size() && s[i] != '\n') ++i;
                continue;
            }
            if (std::isdigit(static_cast<unsigned char>(c)) ||
                (c == '.' && i + 1 < s.size() && std::isdigit(static_cast<unsigned char>(s[i + 1])))) {
                number();
                continue;
            }
            if (c == 'L' && i + 1 < s.size() && s[i + 1] == '\'') {  // a wide character: its character's value
                ++i;
                continue;
            }
            if (isIdStart(c)) {
                size_t e = i;
                while (e < s.size() && isIdChar(s[e])) ++e;
                const std::string id = s.substr(i, e - i);
                i = e;
                const auto* kw = std::lower_bound(std::begin(kKeywords), std::end(kKeywords), id,
                                                  [](const KeywordCode& k, const std::string& n) { return n.compare(k.name) > 0; });
                Token t;
                if (kw != std::end(kKeywords) && id == kw->name) {
                    t.code = kw->code;
                    push(t, 1);
                    continue;
                }
                const int sym = out.symbols.intern(id);
                if (sym == 0) fail(kErrSymbolTable);
                t.code = kTokIdent;
                t.i = sym;
                push(t, 5);
                continue;
            }
            if (c == '"') {
                std::string v;
                ++i;
                for (;;) {
                    if (i >= s.size() || s[i] == '\n') fail(kErrUnterminatedString);
                    if (s[i] == '"') {
                        ++i;
                        // Adjacent constants join into one.
                        size_t k = i;
                        while (k < s.size() && (s[k] == ' ' || s[k] == '\t' || s[k] == '\r' || s[k] == '\n')) {
                            if (s[k] == '\n') ++line;
                            ++k;
                        }
                        if (k < s.size() && s[k] == '"') {
                            i = k + 1;
                            continue;
                        }
                        for (size_t p = i; p < k; ++p) line -= s[p] == '\n';
                        break;
                    }
                    v += static_cast<char>(charValue());
                }
                Token t;
                t.code = kTokString;
                t.i = static_cast<int64_t>(out.strings.size());
                out.strings.push_back(std::move(v));
                push(t, out.strings.back().size() + 2);
                continue;
            }
            if (c == '\'') {
                ++i;
                int64_t v = 0;
                int n = 0;
                while (i < s.size() && s[i] != '\'' && s[i] != '\n') {
                    const int ch = charValue();
                    v = n == 0 ? static_cast<signed char>(ch) : (v << 8) | ch;
                    ++n;
                }
                if (i >= s.size() || s[i] != '\'') fail(kErrUnterminatedString);
                ++i;
                Token t;
                t.code = kTokNumber;
                t.kind = kNumInt;
                t.i = static_cast<int32_t>(v);
                push(t, 9);
                continue;
            }
            if (c == '.' && s.compare(i, 3, "...") == 0) {
                i += 3;
                push(Token{kTokEllipsis}, 1);
                continue;
            }
            struct Two { char a, b; uint8_t code; };
            static const Two twos[] = {{'!', '=', kTokNe}, {'&', '&', kTokAndAnd}, {'+', '+', kTokInc}, {'-', '-', kTokDec},
                                       {'-', '>', kTokArrow}, {'<', '<', kTokShl}, {'<', '=', kTokLe}, {'=', '=', kTokEq},
                                       {'>', '=', kTokGe}, {'>', '>', kTokShr}, {'|', '|', kTokOrOr}};
            const char n = i + 1 < s.size() ? s[i + 1] : 0;
            bool done = false;
            for (const Two& t : twos) {
                if (t.a == c && t.b == n) {
                    Token tok;
                    tok.code = t.code;
                    i += 2;
                    if ((t.code == kTokShl || t.code == kTokShr) && i < s.size() && s[i] == '=') {
                        tok.code |= kTokAssignBit;
                        ++i;
                    }
                    push(tok, 1);
                    done = true;
                    break;
                }
            }
            if (done) continue;
            if (std::strchr("+-*/%&|^~!<>=?:;,.()[]{}", c) == nullptr || c == 0) fail(kErrSyntax);
            Token tok;
            tok.code = static_cast<uint8_t>(c);
            ++i;
            if (n == '=' && std::strchr("+-*/%&|^", c)) {
                tok.code |= kTokAssignBit;
                ++i;
            }
            push(tok, 1);
        }
        push(Token{kTokEnd}, 2);
    }
};

}  // namespace

void tokenize(const std::string& text, TokenStream& out) {
    out.toks.clear();
    out.strings.clear();
    Lexer lx{text, out};
    lx.run();
}

}  // namespace zol
