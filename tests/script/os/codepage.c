/* Windows-1252 and CP437 above 127: conversion both ways, case, character classes,
   comparison without regard to case, stepping through a string. */
#include <windows.h>
#include <stdio.h>
// out: oem 82 8a 99 41 back e9 e8 d6 41 buff 82 0 82
// out: upper 43 41 46 c9 20 c0 20 8a lower 63 61 66 e9 20 e0 20 9a char c9 e9 41 buff 3 c9 54 c9
// out: alpha 1 0 1 upper 1 0 lower 0 1 1 lead 0 cmp 0 -1 1 0 -1 next 1 0 prev 0 0
void hex(const char *label, const char *s, int n)
{
    printf("%s", label);
    while (n-- > 0)
        printf(" %x", (unsigned char)*s++);
}

int main(void)
{
    char s[] = "\xe9\xe8\xd6" "A", t[8], u[8], buf[3] = {'\xe9', 0, '\xe9'};
    char word[] = "caf\xe9 \xe0 \x9a", three[] = "\xe9t\xe9";
    AnsiToOem(s, t);
    OemToAnsi(t, u);
    AnsiToOemBuff(buf, buf, 3);
    hex("oem", t, 4), hex(" back", u, 4), hex(" buff", buf, 3);
    hex("\nupper", AnsiUpper(word), 8), hex(" lower", AnsiLower(word), 8);
    printf(" char %x %x %x buff %lu", (unsigned)AnsiUpper((LPSTR)0xe9) & 0xff, (unsigned)AnsiLower((LPSTR)0xc9) & 0xff,
           (unsigned)AnsiUpper((LPSTR)'a'), AnsiUpperBuff(three, 3));
    hex("", three, 3);
    printf("\n");
    printf("alpha %d %d %d upper %d %d lower %d %d %d lead %d", IsCharAlpha('\xe9'), IsCharAlpha('\xd7'),
           IsCharAlphaNumeric('7'), IsCharUpper('\xc9'), IsCharUpper('\xe9'), IsCharLower('\xc9'),
           IsCharLower('\xe9'), IsCharLower('\xdf'), IsDBCSLeadByte(0xe9));
    printf(" cmp %d %d %d %d %d", lstrcmpi("\xc9" "COLE", "\xe9" "cole"), lstrcmp("\xc9", "\xe9"), lstrcmp("b", "a"),
           lstrcmp(NULL, ""), lstrcmpi("a", "B"));
    printf(" next %d %d prev %d %d\n", AnsiNext(three) - three, AnsiNext(three + 3) - (three + 3),
           AnsiPrev(three, three + 1) - three, AnsiPrev(three, three) - three);
    return 0;
}
