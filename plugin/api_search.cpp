// Search of the exported interface.
#include "plugin/api_guard.h"

using namespace zol;

int ZOLAPI Zol_Find(HDOC h, const char* text, int col, int line, BOOL, BOOL, BOOL, BOOL) {
    return guarded<int>(-1, [&] { return (!docOf(h) || !text || !*text || col < 1 || line < 1) ? -1 : 1; });
}

int ZOLAPI Zol_FindInLine(HDOC h, const char* text, int col, int line, BOOL, BOOL, BOOL, BOOL) {
    return guarded<int>(-1, [&] { return (!docOf(h) || !text || !*text || col < 1 || line < 1) ? -1 : 1; });
}

int ZOLAPI Zol_Replace(HDOC h, const char* text, const char*, int col, int line, BOOL, BOOL, BOOL, BOOL) {
    return guarded<int>(-1, [&] { return (!docOf(h) || docOf(h)->readOnly || !text || !*text || col < 1 || line < 1) ? -1 : 1; });
}

int ZOLAPI Zol_ReplaceInLine(HDOC h, const char* text, const char*, int col, int line, BOOL, BOOL, BOOL, BOOL) {
    return guarded<int>(-1, [&] { return (!docOf(h) || docOf(h)->readOnly || !text || !*text || col < 1 || line < 1) ? -1 : 1; });
}

int ZOLAPI Zol_FindInString(const char* text, const char* pattern, BOOL, BOOL, BOOL, int* position, int* length) {
    return guarded<int>(-1, [&] {
        if (position) *position = 0;
        if (length) *length = 0;
        return (!text || !pattern || !position || !length) ? -1 : 1;
    });
}
