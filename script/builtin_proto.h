// Reading a built-in's C prototype: its name, and the letters by which the compiler
// converts a call's arguments and types its result. Everything here is constexpr so
// that the built-in table is derived, and checked, while the program is compiled.
#pragma once
#include <array>
#include <cstddef>
#include <string_view>

namespace zol {

// One letter per type as a call passes it: i int (and every narrower type), u unsigned,
// l long, L unsigned long, d double, c char *, p any other pointer, v void; "." stands
// for further arguments. The result's letter comes first; "?" marks what cannot be read.
constexpr size_t kBuiltinSigMax = 12;  // result, up to ten arguments, terminating zero
using BuiltinSig = std::array<char, kBuiltinSigMax>;

// The typedef names of the shipped headers that prototypes use, by the letter of the
// type each one names.
struct BuiltinTypedef {
    std::string_view name;
    char letter;
};
inline constexpr BuiltinTypedef kBuiltinTypedefs[] = {
    {"size_t", 'u'}, {"time_t", 'l'}, {"clock_t", 'l'}, {"BOOL", 'i'},  {"BYTE", 'i'},
    {"WORD", 'i'},   {"UINT", 'u'},   {"DWORD", 'L'},   {"LONG", 'l'},  {"LPSTR", 'c'},
    {"LPCSTR", 'c'}, {"LPVOID", 'p'}, {"HANDLE", 'p'},  {"HWND", 'p'},  {"HINSTANCE", 'p'},
    {"HDOC", 'p'},
};

namespace proto {

constexpr bool isIdChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

constexpr std::string_view trim(std::string_view s) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

// The identifiers of a declaration, without its qualifiers.
struct Words {
    std::string_view w[6];
    size_t n = 0;
    bool overflow = false;
};

constexpr Words wordsOf(std::string_view decl) {
    Words r;
    size_t i = 0;
    while (i < decl.size()) {
        if (!isIdChar(decl[i])) {
            ++i;
            continue;
        }
        size_t e = i;
        while (e < decl.size() && isIdChar(decl[e])) ++e;
        const std::string_view word = decl.substr(i, e - i);
        if (word != "const" && word != "volatile") {
            if (r.n == 6) r.overflow = true;
            else r.w[r.n++] = word;
        }
        i = e;
    }
    return r;
}

constexpr bool isTypeKeyword(std::string_view w) {
    return w == "unsigned" || w == "signed" || w == "char" || w == "short" || w == "int" || w == "long" ||
           w == "float" || w == "double" || w == "void";
}

// A type spelled with C's own keywords, possibly followed by a parameter name.
constexpr char keywordTypeLetter(const Words& words) {
    size_t n = words.n;
    if (n > 1 && !isTypeKeyword(words.w[n - 1])) --n;  // the parameter's name
    bool isUnsigned = false, narrow = false;
    int longs = 0;
    char letter = 0;
    for (size_t k = 0; k < n; ++k) {
        const std::string_view w = words.w[k];
        if (!isTypeKeyword(w)) return '?';
        if (w == "unsigned") isUnsigned = true;
        else if (w == "char" || w == "short") narrow = true;
        else if (w == "long") ++longs;
        else if (w == "double" || w == "float") letter = 'd';
        else if (w == "void") letter = 'v';
    }
    if (letter) return letter;
    if (narrow) return 'i';  // promoted to int on the way in
    if (longs) return isUnsigned ? 'L' : 'l';
    return isUnsigned ? 'u' : 'i';
}

}  // namespace proto

// The letter of one declaration: a parameter ("const char *name", "size_t n", "...") or
// a result type ("unsigned long", "FILE *").
constexpr char builtinTypeLetter(std::string_view decl) {
    decl = proto::trim(decl);
    if (decl == "...") return '.';
    int stars = 0;
    for (char c : decl) stars += c == '*';
    const proto::Words words = proto::wordsOf(decl);
    if (words.n == 0 || words.overflow) return '?';
    if (stars > 0) return stars == 1 && words.w[0] == "char" ? 'c' : 'p';
    for (const BuiltinTypedef& t : kBuiltinTypedefs)
        if (words.w[0] == t.name) return words.n <= 2 ? t.letter : '?';
    return proto::keywordTypeLetter(words);
}

// A prototype's parts: "int printf(const char *format, ...)" has the result "int ",
// the name "printf" and the parameters "const char *format, ...".
struct BuiltinProtoParts {
    std::string_view result, name, params;
    bool ok = false;
};

constexpr BuiltinProtoParts splitBuiltinPrototype(std::string_view p) {
    const size_t open = p.find('(');
    if (open == std::string_view::npos || p.empty() || p.back() != ')') return {};
    size_t end = open;
    while (end > 0 && p[end - 1] == ' ') --end;
    size_t begin = end;
    while (begin > 0 && proto::isIdChar(p[begin - 1])) --begin;
    if (begin == end || begin == 0) return {};
    return {p.substr(0, begin), p.substr(begin, end - begin), p.substr(open + 1, p.size() - open - 2), true};
}

// The letters of a whole prototype: the result's, then one per parameter.
constexpr BuiltinSig builtinSignature(std::string_view prototype) {
    BuiltinSig sig{};
    const BuiltinProtoParts parts = splitBuiltinPrototype(prototype);
    if (!parts.ok) {
        sig[0] = '?';
        return sig;
    }
    size_t k = 0;
    sig[k++] = builtinTypeLetter(parts.result);
    std::string_view rest = proto::trim(parts.params);
    if (rest == "void") rest = {};
    while (!rest.empty()) {
        if (k + 1 >= kBuiltinSigMax) {
            sig[0] = '?';
            return sig;
        }
        const size_t comma = rest.find(',');
        sig[k++] = builtinTypeLetter(rest.substr(0, comma));
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    }
    return sig;
}

// Whether letters read from a prototype make a signature: every type known, void only
// as the result, "." only last.
constexpr bool validBuiltinSignature(const BuiltinSig& sig) {
    if (sig[0] == 0 || sig[0] == '.') return false;
    for (size_t k = 0; k < kBuiltinSigMax && sig[k]; ++k) {
        const char c = sig[k];
        if (std::string_view("iulLdcpv.").find(c) == std::string_view::npos) return false;
        if (c == 'v' && k > 0) return false;
        if (c == '.' && k + 1 < kBuiltinSigMax && sig[k + 1]) return false;
    }
    return true;
}

}  // namespace zol
