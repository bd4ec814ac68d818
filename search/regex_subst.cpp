// Expanding a replacement template from the groups of the last match.
#include <cstring>

#include "engine/case_map.h"
#include "search/regex.h"

namespace zol {
namespace {

bool isModifier(char c) { return c == 'u' || c == 'U' || c == 'l' || c == 'L'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Does a group reference ("&" or "\0".."\9") start at t?
bool groupReferenceAt(const char* t) { return *t == '&' || (t[0] == '\\' && isDigit(t[1])); }

void convert(char* from, char* to, char modifier) {
    if (from == to) return;
    switch (modifier) {
        case 'u': *from = cpUpper(*from); break;
        case 'l': *from = cpLower(*from); break;
        case 'U':
            for (char* p = from; p < to; ++p) *p = cpUpper(*p);
            break;
        case 'L':
            for (char* p = from; p < to; ++p) *p = cpLower(*p);
            break;
        default: break;
    }
}

}  // namespace

void regexSubstitute(const RegexProgram* prog, const char* tmpl, char* out, size_t size) {
    if (!prog || !tmpl || !out || size == 0 || prog->code.empty() || prog->code[0] != kRegexMagic) return;
    char* dst = out;
    char* const room = out + size - 1;
    char modifier = 0;
    while (*tmpl && dst < room) {
        const char c = *tmpl++;
        int group = -1;
        if (c == '&') {
            group = 0;
        } else if (c == '\\') {
            const char e = *tmpl;
            if (e == '\0') break;
            ++tmpl;
            if (isDigit(e)) {
                group = e - '0';
            } else if (isModifier(e)) {
                // A modifier only counts directly before a group reference.
                modifier = groupReferenceAt(tmpl) ? e : 0;
                continue;
            } else {
                const char* at = std::strchr(kRegexEscapes, e);
                *dst++ = at ? kRegexEscapeValues[at - kRegexEscapes] : e;
                continue;
            }
        } else {
            *dst++ = c;
            continue;
        }
        const char* from = prog->groupStart[group];
        const char* to = prog->groupEnd[group];
        if (from && to && to > from) {
            size_t n = static_cast<size_t>(to - from);
            if (n > static_cast<size_t>(room - dst)) n = static_cast<size_t>(room - dst);
            std::memcpy(dst, from, n);
            convert(dst, dst + n, modifier);
            dst += n;
        }
        modifier = 0;
    }
    *dst = '\0';
}

}  // namespace zol
