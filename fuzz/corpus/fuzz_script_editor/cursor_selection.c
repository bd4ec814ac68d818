/* The cursor and the selection through out-values: 1-based positions, a selection
   dragged upwards whose begin is still its upper end, its text in the script's memory,
   column mode, and the answers for no document. */
#include <stdio.h>
#include <string.h>
#include <editor/doc.h>
// doc: sel.txt
// | first line
// | second
// out: start 1,1 sel 1 type 1 from 7,1 to 3,2 text 1
// out: cleared 0 0 0,0 column 2 type 2 back 1
// out: no document 1,1 0 0,0
// doc-after: sel.txt
// | first line
// | second
int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    int col = 0, line = 0, endCol = 0, endLine = 0, ok;
    char *text;

    Zol_GetCursorPos(h, &col, &line);
    printf("start %d,%d", col, line);
    Zol_SetCursorPos(h, 3, 2, FALSE);
    Zol_SetCursorPos(h, 7, 1, TRUE);
    Zol_GetSelBeginPos(h, &col, &line);
    Zol_GetSelEndPos(h, &endCol, &endLine);
    text = Zol_GetSelection(h);
    printf(" sel %d type %d from %d,%d to %d,%d text %d\n", Zol_IsSelExist(h), Zol_GetSelType(h), col, line, endCol,
           endLine, strcmp(text, "line\r\nse") == 0);
    Zol_MemFree(text);

    Zol_SetCursorPos(h, 1, 1, FALSE);
    ok = Zol_GetSelBeginPos(h, &col, &line);
    printf("cleared %d %d %d,%d", Zol_IsSelExist(h), ok, col, line);
    Zol_SetSelMode(h, 2);
    Zol_SetCursorPos(h, 4, 2, TRUE);
    printf(" column %d type %d", Zol_GetSelMode(h), Zol_GetSelType(h));
    Zol_SetSelMode(h, 1);
    printf(" back %d\n", Zol_GetSelMode(h));

    Zol_GetCursorPos(0, &col, &line);
    Zol_GetCursorPos(h, 0, 0);
    printf("no document %d,%d %d", col, line, Zol_GetSelBeginPos(0, &col, &line));
    printf(" %d,%d\n", col, line);
    return 0;
}
