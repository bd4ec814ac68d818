/* The editing options are the settings' own variables: numbers are clamped or refused
   as the interface says, switches read back what was set, and the document's own wrap
   follows its handle. */
#include <stdio.h>
#include <editor/doc.h>
#include <editor/options.h>
// doc: opt.txt
// | text
// out: tab 2 20 7
// out: wrap column 3199 3199 method 3 3
// out: block indent 1 20
// out: switches 1 0 1 0 1 0 1 0 1 0
// out: corrections 0 1 0 1
// out: document wrap 1 1 0 none 0 0
int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    int t1, t2;

    Zol_SetTabSize(1);
    t1 = Zol_GetTabSize();
    Zol_SetTabSize(50);
    t2 = Zol_GetTabSize();
    Zol_SetTabSize(7);
    printf("tab %d %d %d\n", t1, t2, Zol_GetTabSize());

    Zol_SetWordWrapCol(3199);
    Zol_SetWordWrapCol(3200);
    t1 = Zol_GetWordWrapCol();
    Zol_SetWordWrapCol(0);
    Zol_SetWordWrapMethod(3);
    Zol_SetWordWrapMethod(4);
    printf("wrap column %d %d method %d", t1, Zol_GetWordWrapCol(), Zol_GetWordWrapMethod());
    Zol_SetWordWrapMethod(0);
    printf(" %d\n", Zol_GetWordWrapMethod());

    Zol_SetBlockIndent(-3);
    t1 = Zol_GetBlockIndent();
    Zol_SetBlockIndent(99);
    printf("block indent %d %d\n", t1, Zol_GetBlockIndent());

    Zol_SetAutoIndentMode(TRUE);
    t1 = Zol_IsAutoIndentMode();
    Zol_SetAutoIndentMode(FALSE);
    printf("switches %d %d", t1, Zol_IsAutoIndentMode());
    Zol_SetOverwriteMode(5);
    t1 = Zol_IsOverwriteMode();
    Zol_SetOverwriteMode(0);
    printf(" %d %d", t1, Zol_IsOverwriteMode());
    Zol_SetUseTabChar(TRUE);
    t1 = Zol_IsUseTabChar();
    Zol_SetUseTabChar(FALSE);
    printf(" %d %d", t1, Zol_IsUseTabChar());
    Zol_SetCursorThroughtTabs(TRUE);
    t1 = Zol_IsCursorThroughtTabs();
    Zol_SetCursorThroughtTabs(FALSE);
    printf(" %d %d", t1, Zol_IsCursorThroughtTabs());
    Zol_SetLineNumbers(TRUE);
    t1 = Zol_IsLineNumbers();
    Zol_SetLineNumbers(FALSE);
    printf(" %d %d\n", t1, Zol_IsLineNumbers());

    Zol_SetACorrectCapsLock(FALSE);
    t1 = Zol_IsACorrectCapsLock();
    Zol_SetACorrectCapsLock(TRUE);
    t2 = Zol_IsACorrectCapsLock();
    Zol_SetACorrectReplaceText(FALSE);
    printf("corrections %d %d %d", t1, t2, Zol_IsACorrectReplaceText());
    Zol_SetACorrectReplaceText(TRUE);
    printf(" %d\n", Zol_IsACorrectReplaceText());

    Zol_SetDocWordWrap(h, TRUE);
    t1 = Zol_IsDocWordWrap(h);
    Zol_SetDocWordWrap(h, FALSE);
    Zol_SetDocWordWrap(0, TRUE);
    printf("document wrap %d %d %d none %d %d\n", t1, Zol_CanSoftWordWrap(h), Zol_IsDocWordWrap(h),
           Zol_CanSoftWordWrap(0), Zol_IsDocWordWrap(0));
    return 0;
}
