// Search of the exported interface: 0 found, 1 not found, -1 bad arguments.
#include "plugin/api_guard.h"
#include "search/find.h"

using namespace zol;

int ZOLAPI Zol_Find(HDOC h, const char* text, int col, int line, BOOL wholeWord, BOOL matchCase, BOOL regExp,
                    BOOL forward) {
    return guarded<int>(-1, [&] { return findText(docOf(h), text, col, line, wholeWord, matchCase, regExp, forward); });
}

int ZOLAPI Zol_FindInLine(HDOC h, const char* text, int col, int line, BOOL wholeWord, BOOL matchCase,
                          BOOL regExp, BOOL forward) {
    return guarded<int>(-1, [&] {
        return findTextInLine(docOf(h), text, col, line, wholeWord, matchCase, regExp, forward);
    });
}

int ZOLAPI Zol_Replace(HDOC h, const char* text, const char* replacement, int col, int line, BOOL wholeWord,
                       BOOL matchCase, BOOL regExp, BOOL forward) {
    return guarded<int>(-1, [&] {
        return replaceText(docOf(h), text, replacement, col, line, wholeWord, matchCase, regExp, forward);
    });
}

int ZOLAPI Zol_ReplaceInLine(HDOC h, const char* text, const char* replacement, int col, int line,
                             BOOL wholeWord, BOOL matchCase, BOOL regExp, BOOL forward) {
    return guarded<int>(-1, [&] {
        return replaceTextInLine(docOf(h), text, replacement, col, line, wholeWord, matchCase, regExp, forward);
    });
}

int ZOLAPI Zol_FindInString(const char* text, const char* pattern, BOOL wholeWord, BOOL matchCase, BOOL regExp,
                            int* position, int* length) {
    return guarded<int>(-1, [&] { return findInString(text, pattern, wholeWord, matchCase, regExp, position, length); });
}
