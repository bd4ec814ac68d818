/* Find and replace in a document and in a string: 0 found, 1 not found, -1 for no
   document, no text or a position outside the text; the hit is selected, a
   replacement left selected, and the string search's out-values written. */
#include <stdio.h>
#include <string.h>
#include <editor/doc.h>
// doc: find.c
// | int main(void)
// | {
// |     int count = 0;
// |     return count;
// | }
// out: found 0 9,3 next 0 12,4 back 0 5,3 missing 1 bad -1 -1 -1
// out: replaced 0 1 in line 0 read-only -1
// out: string 0 6 3 absent 1 -1
// doc-after: find.c
// | int main(void)
// | {
// |     int total = 0;
// |     return n;
// | }
void where(HDOC h)
{
    int col, line;
    Zol_GetSelBeginPos(h, &col, &line);
    printf(" %d,%d", col, line);
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
    printf(" back %d", Zol_Find(h, "int", 1, 5, FALSE, TRUE, FALSE, FALSE));
    where(h);
    printf(" missing %d bad %d %d %d\n", Zol_Find(h, "missing", 1, 1, FALSE, TRUE, FALSE, TRUE),
           Zol_Find(h, 0, 1, 1, FALSE, TRUE, FALSE, TRUE), Zol_Find(h, "int", 1, 99, FALSE, TRUE, FALSE, TRUE),
           Zol_Find(0, "int", 1, 1, FALSE, TRUE, FALSE, TRUE));

    printf("replaced %d", Zol_Replace(h, "count", "total", 1, 1, FALSE, TRUE, FALSE, TRUE));
    text = Zol_GetSelection(h);
    printf(" %d", strcmp(text, "total") == 0);
    Zol_MemFree(text);
    printf(" in line %d", Zol_ReplaceInLine(h, "count", "n", 1, 4, FALSE, TRUE, FALSE, TRUE));
    Zol_SetReadOnly(h, TRUE);
    printf(" read-only %d\n", Zol_Replace(h, "int", "long", 1, 1, FALSE, TRUE, FALSE, TRUE));
    Zol_SetReadOnly(h, FALSE);

    printf("string %d", Zol_FindInString("hello world", "wor", FALSE, TRUE, FALSE, &pos, &len));
    printf(" %d %d absent %d %d\n", pos, len, Zol_FindInString("hello", "xyz", FALSE, TRUE, FALSE, &pos, &len),
           Zol_FindInString("hello", "l", FALSE, TRUE, FALSE, 0, &len));
    return 0;
}
