/* The cursor and the selection: 1-based positions, a selection dragged upwards whose
   begin is still its upper end, its text in the script's memory, column mode, placing
   the cursor inside a tab, and the answers for no document. */
#include <stdio.h>
#include <editor/doc.h>
// doc: sel.txt
// | first line
// | 	second
// | third
// out: start 1,1
// out: sel 1 type 1 mode 1 from 7,1 to 3,3
// out: text [line\r\n\tsecond\r\nth]
// out: cleared 0 0 0,0
// out: column 2 1 type 2 back 1 0
// out: tab start 1,2 exactly 4,2 ignored 4,2 char 104
// out: no document 1,1 scroll 0,0 here 1,1 0
// doc-after: sel.txt
// | first line
// | 	second
// | third
void show(const char *label, const char *text)
{
    printf("%s [", label);
    for (; *text; text++) {
        if (*text == '\r') printf("\\r");
        else if (*text == '\n') printf("\\n");
        else if (*text == '\t') printf("\\t");
        else putchar(*text);
    }
    printf("]\n");
}

int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    int col = 0, line = 0, endCol = 0, endLine = 0, ok;
    char *text;

    Zol_GetCursorPos(h, &col, &line);
    printf("start %d,%d\n", col, line);
    Zol_SetCursorPos(h, 3, 3, FALSE);
    Zol_SetCursorPos(h, 7, 1, TRUE);
    Zol_GetSelBeginPos(h, &col, &line);
    Zol_GetSelEndPos(h, &endCol, &endLine);
    printf("sel %d type %d mode %d from %d,%d to %d,%d\n", Zol_IsSelExist(h), Zol_GetSelType(h), Zol_GetSelMode(h),
           col, line, endCol, endLine);
    text = Zol_GetSelection(h);
    show("text", text);
    Zol_MemFree(text);

    Zol_SetCursorPos(h, 1, 1, FALSE);
    ok = Zol_GetSelBeginPos(h, &col, &line);
    printf("cleared %d %d %d,%d\n", Zol_IsSelExist(h), ok, col, line);

    Zol_SetSelMode(h, 2);
    Zol_SetSelMode(h, 5);
    printf("column %d %d", Zol_GetSelMode(h), Zol_IsColumnSelMode(h));
    Zol_SetCursorPos(h, 4, 3, TRUE);
    printf(" type %d", Zol_GetSelType(h));
    Zol_SetSelMode(h, 1);
    printf(" back %d %d\n", Zol_GetSelMode(h), Zol_IsColumnSelMode(h));

    Zol_SetCursorPos(h, 4, 2, FALSE);
    Zol_GetCursorPos(h, &col, &line);
    printf("tab start %d,%d", col, line);
    Zol_SetCursorPosExactly(h, 4, 2, FALSE);
    Zol_GetCursorPos(h, &col, &line);
    printf(" exactly %d,%d", col, line);
    Zol_SetCursorPos(h, 0, 3, FALSE);
    Zol_GetCursorPos(h, &col, &line);
    printf(" ignored %d,%d", col, line);
    Zol_SetCursorPos(h, 2, 3, FALSE);
    Zol_GetCursorPos(h, 0, 0);
    printf(" char %d\n", Zol_GetCurrentChar(h));

    Zol_GetCursorPos(0, &col, &line);
    printf("no document %d,%d", col, line);
    Zol_GetWndScrollPos(0, &col, &line);
    printf(" scroll %d,%d", col, line);
    Zol_GetWndScrollPos(h, &col, &line);
    printf(" here %d,%d %d\n", col, line, Zol_GetCurrentChar(0));
    return 0;
}
