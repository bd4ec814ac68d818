/* The string helpers work on the script's own strings and hand back pointers into
   them; lengths and columns count screen columns as the editor's lines do. */
#include <stdio.h>
#include <string.h>
#include <editor/doc.h>
// out: length 10 0 trim 3 case ABC201 1 abc233
// out: pointer 1 1 1 [c] column 9 1 1
// out: chars 201 233 1 0
int main(void)
{
    char s[16], *p;

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
