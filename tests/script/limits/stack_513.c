/* The 513th value cell overflows the evaluation stack. */
// error: stack_513.c Line 7: Stack owerflow
#include "inc/operands.h"
int main(void)
{
    int x = 0;
    return P256(P256(x));
}
