/* Recursion without end through a pointer stops at the evaluation stack at the same
   depth as direct recursion. */
#include <stdio.h>
// out: 506
// out: 507
// out: 508
// error: recursion_pointer.c Line 11: Stack owerflow
int (*again)(int);
int down(int n)
{
    if (n > 505) printf("%d\n", n);
    return again(n + 1) + 1;
}
int main(void)
{
    again = down;
    return down(0);
}
