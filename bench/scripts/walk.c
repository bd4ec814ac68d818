/* Reads every line of the active document with Zol_GetLine and sums the lengths. */
#include <stdio.h>
#include <editor/doc.h>

int main(void)
{
    HDOC h = Zol_GetActiveDocument();
    char line[3201];
    int i, n = Zol_GetNumberOfLines(h);
    long total = 0;

    for (i = 1; i <= n; i++) total += Zol_GetLine(h, i, line, sizeof line);
    printf("%ld\n", total);
    return 0;
}
