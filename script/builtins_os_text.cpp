// Characters of the ANSI code page (Windows-1252) and the OEM one (CP437): conversion
// between the two through the built-in tables, case and character classes by the
// editor's one case table, comparison. Both code pages have one byte a character.
#include "engine/case_map.h"
#include "files/codepage.h"
#include "script/builtins_os.h"

namespace zol {
namespace {

// The Windows case calls take a character in place of a pointer when the pointer's
// high word is zero.
constexpr uint32_t kCharInPointer = 0xFFFF;

const ConvertTable& ansiToOem() {
    static const ConvertTable t = ansiToOemTable();
    return t;
}
const ConvertTable& oemToAnsi() {
    static const ConvertTable t = oemToAnsiTable();
    return t;
}

// source, dest and, for the counted forms, the number of bytes; dest may be source.
Val recode(BArgs& a, const ConvertTable& table, bool counted) {
    std::string text;
    if (counted) {
        const uint32_t n = a.p(2);
        if (n == 0) return intVal(1);
        const uint8_t* src = a.en.host(a.p(0), n);
        text.assign(reinterpret_cast<const char*>(src), n);
    } else {
        text = a.s(0);
        text.push_back('\0');
    }
    for (char& c : text) c = static_cast<char>(table[static_cast<uint8_t>(c)]);
    putBytes(a.en, a.p(1), text.data(), text.size());
    return intVal(1);
}

void mapBytes(uint8_t* p, size_t n, char (*map)(char)) {
    for (size_t k = 0; k < n; ++k) p[k] = static_cast<uint8_t>(map(static_cast<char>(p[k])));
}

Val caseString(BArgs& a, char (*map)(char)) {
    const uint32_t p = a.p(0);
    if (p <= kCharInPointer) return intVal(static_cast<uint8_t>(map(static_cast<char>(p))));
    const size_t n = a.en.cstr(p).size();
    mapBytes(a.en.host(p, static_cast<uint32_t>(n)), n, map);
    return intVal(p);
}

Val caseBuffer(BArgs& a, char (*map)(char)) {
    const uint32_t n = a.p(1);
    if (n > 0) mapBytes(a.en.host(a.p(0), n), n, map);
    return intVal(n);
}

char charArg(BArgs& a) { return static_cast<char>(a.i(0)); }
bool isUpperChar(char c) { return cpLower(c) != c; }

// Windows takes a null string for an empty one here.
std::string textOrEmpty(BArgs& a, size_t k) { return optionalText(a, k).value_or(std::string()); }

int compare(const std::string& x, const std::string& y, char (*map)(char)) {
    for (size_t k = 0;; ++k) {
        const uint8_t cx = k < x.size() ? static_cast<uint8_t>(map(x[k])) : 0;
        const uint8_t cy = k < y.size() ? static_cast<uint8_t>(map(y[k])) : 0;
        if (cx != cy) return cx < cy ? -1 : 1;
        if (cx == 0) return 0;
    }
}

char same(char c) { return c; }

}  // namespace

Val bi_AnsiToOem(BArgs& a) { return recode(a, ansiToOem(), false); }

Val bi_OemToAnsi(BArgs& a) { return recode(a, oemToAnsi(), false); }

Val bi_AnsiToOemBuff(BArgs& a) { return recode(a, ansiToOem(), true); }

Val bi_OemToAnsiBuff(BArgs& a) { return recode(a, oemToAnsi(), true); }

Val bi_AnsiNext(BArgs& a) {
    const uint32_t p = a.p(0);
    return intVal(*a.en.host(p, 1) ? p + 1 : p);
}

Val bi_AnsiPrev(BArgs& a) {
    const uint32_t start = a.p(0), current = a.p(1);
    a.en.host(start, 1);
    if (current <= start) return intVal(start);
    a.en.host(start, current - start);  // both in one object
    return intVal(current - 1);
}

Val bi_AnsiUpper(BArgs& a) { return caseString(a, cpUpper); }

Val bi_AnsiLower(BArgs& a) { return caseString(a, cpLower); }

Val bi_AnsiUpperBuff(BArgs& a) { return caseBuffer(a, cpUpper); }

Val bi_AnsiLowerBuff(BArgs& a) { return caseBuffer(a, cpLower); }

Val bi_IsCharAlpha(BArgs& a) { return intVal(cpIsLetter(charArg(a))); }

Val bi_IsCharAlphaNumeric(BArgs& a) {
    const char c = charArg(a);
    return intVal(cpIsLetter(c) || (c >= '0' && c <= '9'));
}

Val bi_IsCharUpper(BArgs& a) { return intVal(isUpperChar(charArg(a))); }

Val bi_IsCharLower(BArgs& a) {
    const char c = charArg(a);
    return intVal(cpIsLetter(c) && !isUpperChar(c));
}

Val bi_lstrcmp(BArgs& a) { return intVal(compare(textOrEmpty(a, 0), textOrEmpty(a, 1), same)); }

Val bi_lstrcmpi(BArgs& a) { return intVal(compare(textOrEmpty(a, 0), textOrEmpty(a, 1), cpLower)); }

Val bi_IsDBCSLeadByte(BArgs&) { return intVal(0); }

}  // namespace zol
