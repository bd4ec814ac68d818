/* The ANSI (Windows-1252) and OEM (CP437) code pages: conversion both ways, case and
   character classes above 127, comparison without regard to case, stepping. */
#include <windows.h>
#include <stdio.h>
#include <string.h>
// out: oem 82 8a 99 41
// out: back e9 e8 d6 41
// out: buff 82 0 82
// out: upper 434146c920c0208a lower 636166e920e0209a
// out: char c9 e9 41
// out: buff 3 c954c9
// out: alpha 1 0 1 upper 1 0 lower 0 1 1 lead 0
// out: cmp 0 -1 1 0 -1
// out: next 1 0 prev 0 0
/* Bytes in hexadecimal, so that the expected lines stay plain ASCII. */
void hex(const char *label, const char *s)
{
    printf("%s", label);
    while (*s)
        printf("%02x", (unsigned char)*s++);
}

int main(void)
{
    char s[] = "\xe9\xe8\xd6" "A", t[8], u[8];
    char word[] = "caf\xe9 \xe0 \x9a";
    char three[] = "\xe9t\xe9";
    char buf[3] = {'\xe9', 0, '\xe9'};
    AnsiToOem(s, t);
    printf("oem %x %x %x %x\n", (unsigned char)t[0], (unsigned char)t[1], (unsigned char)t[2], t[3]);
    OemToAnsi(t, u);
    printf("back %x %x %x %x\n", (unsigned char)u[0], (unsigned char)u[1], (unsigned char)u[2], u[3]);
    AnsiToOemBuff(buf, buf, 3);
    printf("buff %x %x %x\n", (unsigned char)buf[0], buf[1], (unsigned char)buf[2]);
    hex("upper ", AnsiUpper(word));
    hex(" lower ", AnsiLower(word));
    printf("\n");
    printf("char %x %x %x\n", (unsigned)AnsiUpper((LPSTR)0xe9) & 0xff, (unsigned)AnsiLower((LPSTR)0xc9) & 0xff,
           (unsigned)AnsiUpper((LPSTR)'a'));
    printf("buff %lu ", AnsiUpperBuff(three, 3));
    hex("", three);
    printf("\n");
    printf("alpha %d %d %d upper %d %d lower %d %d %d lead %d\n", IsCharAlpha('\xe9'), IsCharAlpha('\xd7'),
           IsCharAlphaNumeric('7'), IsCharUpper('\xc9'), IsCharUpper('\xe9'), IsCharLower('\xc9'),
           IsCharLower('\xe9'), IsCharLower('\xdf'), IsDBCSLeadByte(0xe9));
    printf("cmp %d %d %d %d %d\n", lstrcmpi("\xc9" "COLE", "\xe9" "cole"), lstrcmp("\xc9", "\xe9"),
           lstrcmp("b", "a"), lstrcmp(NULL, ""), lstrcmpi("a", "B"));
    printf("next %d %d prev %d %d\n", AnsiNext(three) - three, AnsiNext(three + 3) - (three + 3),
           AnsiPrev(three, three + 1) - three, AnsiPrev(three, three) - three);
    return 0;
}
