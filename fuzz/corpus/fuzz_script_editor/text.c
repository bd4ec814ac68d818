/* Lines through the script's buffers: copies cut to the buffer's size, lengths, whole
   lines replaced, text inserted at the cursor, a range handed over in the script's own
   memory, and commands run by number, those out of range doing nothing. */
#include <stdio.h>
#include <string.h>
#include <editor/doc.h>
#include <editor/macros.h>
/* The commands' answers are checked: the macros' calls go to Zol_EdCmd, the same
   built-in as Zol_EditorCommand, which gives the executor's result. */
#define Zol_EditorCommand Zol_EdCmd
// doc: text.txt
// | alpha beta
// | 	tabbed
// | gamma
// out: 10 [alpha beta] 3 [alp] 0 []
// out: width 14 bytes 7 missing -1 set 1 0
// out: insert 1 at 1,4 range 1
// out: delete 1 undo 1 unknown 0 0 0 0 lines 4
// doc-after: text.txt
// | alpha beta
// | one
// | two
// | GAMMA!
int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    char buf[32], small[4];
    char *range;
    int n, col, line;

    n = Zol_GetLine(h, 1, buf, sizeof buf);
    printf("%d [%s]", n, buf);
    n = Zol_GetLine(h, 1, small, sizeof small);
    printf(" %d [%s]", n, small);
    n = Zol_GetLine(h, 9, buf, sizeof buf);
    printf(" %d [%s]\n", n, buf);
    printf("width %d bytes %d missing %d", Zol_GetLineLen(h, 2, 0), Zol_GetLineLen(h, 2, 1), Zol_GetLineLen(h, 4, 0));
    printf(" set %d %d\n", Zol_SetLine(h, 3, "GAMMA!"), Zol_SetLine(h, 4, "x"));

    Zol_SetCursorPos(h, 1, 2, FALSE);
    printf("insert %d", Zol_InsertText(h, "one\ntwo\n"));
    Zol_GetCursorPos(h, &col, &line);
    range = Zol_GetText(h, 1, 2, 3, 3);
    printf(" at %d,%d range %d\n", col, line, strcmp(range, "one\r\ntw") == 0);
    Zol_MemFree(range);

    printf("delete %d", VM_DeleteLine(h));
    printf(" undo %d", VM_Undo(h));
    VM_DeleteLine(h);
    printf(" unknown %d %d %d %d lines %d\n", Zol_EdCmd(h, 0, 0), Zol_EdCmd(h, 999, 0), Zol_EdCmd(h, 70000, 0),
           Zol_EdCmd(h, -1, 0), Zol_GetNumberOfLines(h));
    return 0;
}
