/* Lines through the script's buffers: copies cut to the buffer's size, lengths, whole
   lines replaced, text inserted at the cursor, a range handed over in the script's own
   memory, and commands run by number, those out of range doing nothing. The string
   helpers work on the script's own strings and hand back pointers into them; lengths
   and columns count screen columns as the editor's lines do. */
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
// out: length 10 0 trim 3 case ABC201 1 abc233
// out: pointer 1 1 1 [c] column 9 1 1
// out: chars 201 233 1 0
// doc-after: text.txt
// | alpha beta
// | one
// | two
// | GAMMA!
int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    char buf[32], small[4];
    char *range, s[16], *p;
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

    strcpy(s, "aBc\351");
    p = Zol_StrUpr(s);
    printf("length %d %d trim %d case %.3s%d %d", Zol_StrLen("a\tbc"), Zol_StrLen(0), Zol_StrLenTrim("abc \t "), s,
           (unsigned char)s[3], p == s);
    Zol_StrLwr(s);
    printf(" %.3s%d\n", s, (unsigned char)s[3]);
    strcpy(s, "a\tbc");
    p = Zol_GetCharPtr(s, 9);
    printf("pointer %d %d %d [%s]", p == s + 2, Zol_GetCharPtr(s, 0) == 0, Zol_GetCharPtr(0, 3) == 0,
           Zol_GetCharPtr(s, 10));
    printf(" column %d %d %d\n", Zol_GetCharColumnPos(s, p), Zol_GetCharColumnPos(s, 0), Zol_GetCharColumnPos(s + 1, s));
    printf("chars %d %d %d %d\n", Zol_ToUpper(233), Zol_ToLower(201), Zol_IsAlpha(233), Zol_IsUpper('q'));
    return 0;
}
