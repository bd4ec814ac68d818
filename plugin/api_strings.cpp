// String helpers and memory of the exported interface. Lengths and columns count
// screen columns, with tabs expanded, as the editor's lines do.
#include <cstdlib>
#include <string_view>

#include "engine/case_map.h"
#include "engine/columns.h"
#include "engine/text_util.h"
#include "plugin/api_guard.h"

using namespace zol;

void ZOLAPI Zol_MemFree(void* p) { std::free(p); }

int ZOLAPI Zol_StrLen(const char* s) {
    return guarded<int>(0, [&] { return s ? lineWidth(s) : 0; });
}

int ZOLAPI Zol_StrLenTrim(const char* s) {
    return guarded<int>(0, [&] {
        if (!s) return 0;
        std::string_view v(s);
        while (!v.empty() && isBlank(v.back())) v.remove_suffix(1);
        return lineWidth(v);
    });
}

int ZOLAPI Zol_GetCharColumnPos(const char* s, const char* p) {
    return guarded<int>(1, [&] { return (s && p) ? charColumnPos(s, p) : 1; });
}

char* ZOLAPI Zol_GetCharPtr(char* s, int col) {
    return guarded<char*>(nullptr, [&]() -> char* {
        if (!s || col == 0) return nullptr;
        return const_cast<char*>(charPtr(s, col));
    });
}

char* ZOLAPI Zol_StrLwr(char* s) {
    return guarded<char*>(s, [&] {
        for (char* p = s; p && *p; ++p) *p = static_cast<char>(Zol_ToLower(static_cast<unsigned char>(*p)));
        return s;
    });
}

char* ZOLAPI Zol_StrUpr(char* s) {
    return guarded<char*>(s, [&] {
        for (char* p = s; p && *p; ++p) *p = static_cast<char>(Zol_ToUpper(static_cast<unsigned char>(*p)));
        return s;
    });
}

// The editor's own code page (Windows-1252); values outside a byte come back as given.
int ZOLAPI Zol_ToUpper(int c) {
    return c < 0 || c > 255 ? c : static_cast<unsigned char>(cpUpper(static_cast<char>(c)));
}
int ZOLAPI Zol_ToLower(int c) {
    return c < 0 || c > 255 ? c : static_cast<unsigned char>(cpLower(static_cast<char>(c)));
}
BOOL ZOLAPI Zol_IsUpper(int c) { return c >= 0 && c <= 255 && cpLower(static_cast<char>(c)) != static_cast<char>(c); }
BOOL ZOLAPI Zol_IsAlpha(int c) { return c >= 0 && c <= 255 && cpIsLetter(static_cast<char>(c)); }
