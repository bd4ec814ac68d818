/* The string helpers count screen columns as the editor's lines do, change case in the
   editor's own code page, and hand back pointers into the script's own string. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <editor/doc.h>
// out: length 10 5 0 trim 3 0
// out: case ABC201 abc233 same 1 1
// out: pointer 1 1 1 1 [c]
// out: column 9 1 1 1
// out: chars 201 233 1 0 1 0 300
// out: freed
int main(void)
{
    char s[16], *p, *copy;

    strcpy(s, "a\tbc");
    printf("length %d %d %d trim %d %d\n", Zol_StrLen(s), Zol_StrLen("hello"), Zol_StrLen(0),
           Zol_StrLenTrim("abc \t "), Zol_StrLenTrim(0));

    strcpy(s, "aBc\351");
    p = Zol_StrUpr(s);
    printf("case %.3s%d", s, (unsigned char)s[3]);
    Zol_StrLwr(s);
    printf(" %.3s%d same %d %d\n", s, (unsigned char)s[3], p == s, Zol_StrLwr(s) == s);

    strcpy(s, "a\tbc");
    p = Zol_GetCharPtr(s, 9);
    printf("pointer %d %d %d %d [%s]\n", p == s + 2, Zol_GetCharPtr(s, 2) == s + 1, Zol_GetCharPtr(s, 0) == 0,
           Zol_GetCharPtr(0, 3) == 0, Zol_GetCharPtr(s, 10));
    printf("column %d %d %d %d\n", Zol_GetCharColumnPos(s, p), Zol_GetCharColumnPos(s, 0),
           Zol_GetCharColumnPos(0, s), Zol_GetCharColumnPos(s + 1, s));

    printf("chars %d %d %d %d %d %d %d\n", Zol_ToUpper(233), Zol_ToLower(201), Zol_IsUpper('Q'), Zol_IsUpper('q'),
           Zol_IsAlpha(233), Zol_IsAlpha('1'), Zol_ToUpper(300));

    copy = malloc(8);
    Zol_MemFree(copy);
    Zol_MemFree(0);
    printf("freed\n");
    return 0;
}
