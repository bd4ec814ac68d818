/* Recursion whose frames hold many variables ends with the variable table, at the
   depth where the 1025th would be made. */
#include <stdio.h>
// out: 89
// out: 90
// out: 91
// out: 92
// error: recursion_variables.c Line 13: Limitation: too many variables
int down(int n)
{
    int a = n, b, c, d, e, f, g, h, i, j;
    if (n > 88) printf("%d\n", a);
    return down(n + 1) + b + c + d + e + f + g + h + i + j;
}
int main(void) { return down(0); }
