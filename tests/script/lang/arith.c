/* Integer promotions, the usual conversions, wraparound and division. */
#include <stdio.h>
// out: -1 4294967295 1
// out: 255 -128 65535 -32768
// out: 2147483647 -2147483648 0
// out: -2 -1 2 1
// out: 7 3 1 8 -8 -4
// out: 3.500000 3 -3 2.500000
// out: 1 0 1
// out: 0.1 1e+10 33554432.000000
// exit: 0
int main(void)
{
    int i = -1;
    unsigned u = i;
    unsigned char uc = 255;
    signed char sc = (signed char)128;
    unsigned short us = (unsigned short)-1;
    short ss = (short)32768;
    int big = 2147483647;
    long l;
    float f = 33554431.0f;
    printf("%d %u %d\n", i, u, i < 0);
    printf("%d %d %d %d\n", uc, sc, us, ss);
    l = big;
    printf("%ld %d %d\n", l, big + 1, (int)(u + 1));
    printf("%d %d %d %d\n", -7 / 3 + 0, -7 % 3 + 0, 7 / 3, 7 % 3);
    printf("%d %d %d %d %d %d\n", 5 | 2, 7 & 3, 5 ^ 4, 1 << 3, -16 >> 1, -8 / 2);
    printf("%f %d %d %f\n", 7 / 2.0, (int)3.9, (int)-3.9, 5 / 2 + 0.5);
    printf("%d %d %d\n", -1 < 0u ? 0 : 1, 1 > 2, (unsigned char)256 == 0);
    printf("%g %g %f\n", 0.1, 1e10, f + 1);
    return 0;
}
