/* Integer promotions and wraparound. */
#include <stdio.h>
#include <limits.h>

int main(void)
{
    unsigned char a = 200, b = 100;
    unsigned int u = UINT_MAX;
    int x = INT_MAX;
    short s = SHRT_MAX;
    char c = 'A';
    unsigned short us = 65535;
    long l = LONG_MIN;
    printf("%d\n", a + b);
    printf("%d\n", (unsigned char)(a + b));
    printf("%u\n", u + 1);
    printf("%d\n", x + 1 == INT_MIN);
    s = s + 1;
    printf("%d\n", s);
    printf("%d %d\n", c + 1, (char)(c + 200));
    printf("%d\n", us * us == -131071);
    printf("%u\n", (unsigned)(us * us));
    printf("%ld\n", l - 1 == LONG_MAX);
    printf("%d\n", -1 >> 1);
    printf("%u\n", 0xFFFFFFFFu >> 28);
    printf("%d\n", (int)sizeof(char) + (int)sizeof(short) + (int)sizeof(int) + (int)sizeof(long) + (int)sizeof(char *));
    return 0;
}
