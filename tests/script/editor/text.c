/* Reading and changing lines: copies cut to the buffer, lengths in columns and bytes,
   whole-line replacement, insertion at the cursor, a range handed over in the script's
   own memory, and commands run by number. */
#include <stdio.h>
#include <editor/doc.h>
#include "commands.h"
// doc: text.txt
// | alpha beta
// | 	tabbed
// | gamma
// out: lines 3
// out: 10 [alpha beta] [alp] 3
// out: 0 []
// out: width 14 bytes 7 missing -1
// out: set 1 0
// out: insert 1 at 1,4
// out: range [one\r\ntw]
// out: delete 1 undo 1
// out: unknown 0 0 0 0 lines 4
// doc-after: text.txt
// | alpha beta
// | one
// | two
// | GAMMA!
void show(const char *label, const char *text)
{
    printf("%s [", label);
    for (; *text; text++) {
        if (*text == '\r') printf("\\r");
        else if (*text == '\n') printf("\\n");
        else putchar(*text);
    }
    printf("]\n");
}

int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    char buf[32], small[4];
    char *range;
    int n, col, line;

    printf("lines %d\n", Zol_GetNumberOfLines(h));
    n = Zol_GetLine(h, 1, buf, sizeof buf);
    printf("%d [%s]", n, buf);
    n = Zol_GetLine(h, 1, small, sizeof small);
    printf(" [%s] %d\n", small, n);
    n = Zol_GetLine(h, 9, buf, sizeof buf);
    printf("%d [%s]\n", n, buf);
    printf("width %d bytes %d missing %d\n", Zol_GetLineLen(h, 2, 0), Zol_GetLineLen(h, 2, 1),
           Zol_GetLineLen(h, 4, 0));
    printf("set %d %d\n", Zol_SetLine(h, 3, "GAMMA!"), Zol_SetLine(h, 4, "x"));

    Zol_SetCursorPos(h, 1, 2, FALSE);
    printf("insert %d", Zol_InsertText(h, "one\ntwo\n"));
    Zol_GetCursorPos(h, &col, &line);
    printf(" at %d,%d\n", col, line);

    range = Zol_GetText(h, 1, 2, 3, 3);
    show("range", range);
    Zol_MemFree(range);

    printf("delete %d", Zol_EdCmd(h, CMD_DeleteLine, 0));
    printf(" undo %d\n", Zol_EdCmd(h, CMD_Undo, 0));
    Zol_EditorCommand(h, CMD_DeleteLine, 0);
    printf("unknown %d %d %d %d lines %d\n", Zol_EdCmd(h, 0, 0), Zol_EdCmd(h, 999, 0), Zol_EdCmd(h, 70000, 0),
           Zol_EdCmd(h, -1, 0), Zol_GetNumberOfLines(h));
    return 0;
}
