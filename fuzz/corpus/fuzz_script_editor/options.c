/* The options are the settings' own variables, clamped or refused as the interface
   says; the document's own wrap goes by its handle. */
#include <stdio.h>
#include <editor/doc.h>
#include <editor/options.h>
// doc: opt.txt
// | text
// out: tab 2 20 wrap column 3199 indent 1 0
// out: document wrap 1 0 none 0
int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    int low, high, on;

    Zol_SetTabSize(1);
    low = Zol_GetTabSize();
    Zol_SetTabSize(50);
    high = Zol_GetTabSize();
    Zol_SetWordWrapCol(3199);
    Zol_SetWordWrapCol(3200);
    Zol_SetAutoIndentMode(5);
    on = Zol_IsAutoIndentMode();
    Zol_SetAutoIndentMode(FALSE);
    printf("tab %d %d wrap column %d indent %d %d\n", low, high, Zol_GetWordWrapCol(), on, Zol_IsAutoIndentMode());

    Zol_SetDocWordWrap(h, TRUE);
    on = Zol_IsDocWordWrap(h);
    Zol_SetDocWordWrap(h, FALSE);
    Zol_SetDocWordWrap(0, TRUE);
    printf("document wrap %d %d none %d\n", on, Zol_IsDocWordWrap(h), Zol_IsDocWordWrap(0));
    return 0;
}
