/* 512 value cells: main's own and 511 operands held while the next is evaluated. */
// exit: 0
#include "inc/operands.h"
int main(void)
{
    int x = 0;
    return P256(P128(P64(P32(P16(P8(P4(P2(P1(x)))))))));
}
