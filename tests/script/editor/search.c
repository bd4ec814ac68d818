/* Find and replace in a document, in one line and in a string: 0 found, 1 not found,
   -1 for no document, no or empty text, a position outside the text, or a read-only
   document. A hit is selected; a replacement is left selected. */
#include <stdio.h>
#include <editor/doc.h>
// doc: find.c
// | int main(void)
// | {
// |     int count = 0;
// |     return count;
// | }
// out: found 0 9,3-14,3 next 0 12,4-17,4 missing 1 nocase 0
// out: bad -1 -1 -1 -1 -1
// out: back 0 5,3-8,3 regex 0 9,3-14,3
// out: in line 1 0
// out: replaced 0 [total] in line 0 deleted 0 read-only -1 -1
// out: string 0 6 3 absent 1 -1 -1
// doc-after: find.c
// | int main(void)
// | {
// |     int total;
// |     return n;
// | }
void where(HDOC h)
{
    int c1, l1, c2, l2;
    Zol_GetSelBeginPos(h, &c1, &l1);
    Zol_GetSelEndPos(h, &c2, &l2);
    printf(" %d,%d-%d,%d", c1, l1, c2, l2);
}

int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    char *text;
    int pos = 9, len = 9;

    printf("found %d", Zol_Find(h, "count", 1, 1, FALSE, TRUE, FALSE, TRUE));
    where(h);
    printf(" next %d", Zol_Find(h, "count", 14, 3, FALSE, TRUE, FALSE, TRUE));
    where(h);
    printf(" missing %d nocase %d\n", Zol_Find(h, "missing", 1, 1, FALSE, TRUE, FALSE, TRUE),
           Zol_Find(h, "COUNT", 1, 1, FALSE, FALSE, FALSE, TRUE));
    printf("bad %d %d %d %d %d\n", Zol_Find(h, "", 1, 1, FALSE, TRUE, FALSE, TRUE),
           Zol_Find(h, 0, 1, 1, FALSE, TRUE, FALSE, TRUE), Zol_Find(h, "int", 1, 99, FALSE, TRUE, FALSE, TRUE),
           Zol_Find(0, "int", 1, 1, FALSE, TRUE, FALSE, TRUE), Zol_Replace((HDOC)99, "a", "b", 1, 1, 0, 0, 0, 1));

    printf("back %d", Zol_Find(h, "int", 1, 5, FALSE, TRUE, FALSE, FALSE));
    where(h);
    printf(" regex %d", Zol_Find(h, "c[a-z]+t", 1, 1, FALSE, TRUE, TRUE, TRUE));
    where(h);
    printf("\nin line %d %d\n", Zol_FindInLine(h, "return", 1, 3, FALSE, TRUE, FALSE, TRUE),
           Zol_FindInLine(h, "return", 1, 4, FALSE, TRUE, FALSE, TRUE));

    printf("replaced %d", Zol_Replace(h, "count", "total", 1, 1, FALSE, TRUE, FALSE, TRUE));
    text = Zol_GetSelection(h);
    printf(" [%s]", text);
    Zol_MemFree(text);
    printf(" in line %d", Zol_ReplaceInLine(h, "count", "n", 1, 4, FALSE, TRUE, FALSE, TRUE));
    printf(" deleted %d", Zol_Replace(h, " = 0", "", 1, 1, FALSE, TRUE, FALSE, TRUE));
    Zol_SetReadOnly(h, TRUE);
    printf(" read-only %d %d\n", Zol_Replace(h, "int", "long", 1, 1, FALSE, TRUE, FALSE, TRUE),
           Zol_ReplaceInLine(h, "int", "long", 1, 1, FALSE, TRUE, FALSE, TRUE));
    Zol_SetReadOnly(h, FALSE);

    printf("string %d", Zol_FindInString("hello world", "wor", FALSE, TRUE, FALSE, &pos, &len));
    printf(" %d %d absent %d %d %d\n", pos, len, Zol_FindInString("hello", "xyz", FALSE, TRUE, FALSE, &pos, &len),
           Zol_FindInString(0, "x", FALSE, TRUE, FALSE, &pos, &len),
           Zol_FindInString("hello", "l", FALSE, TRUE, FALSE, 0, &len));
    return 0;
}
