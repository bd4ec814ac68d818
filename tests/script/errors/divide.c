/* Integer division by zero ends the run; the output before it stays. */
// out: before
// error: divide.c Line 10: Divide by 0
#include <stdio.h>
int main(void)
{
    int zero = 0;
    printf("before\n");
    fflush(stdout);
    return 10 / zero;
}
