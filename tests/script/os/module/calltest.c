/* Functions that the scripts of tests/script/os call through CallDLLFunc. */
#include <string.h>

int add3(int a, int b, int c) { return a + b + c; }

/* Twelve words: the last six travel on the stack. */
int weigh12(int a, int b, int c, int d, int e, int f, int g, int h, int i, int j, int k, int l)
{
    return a + 2 * b + 3 * c + 4 * d + 5 * e + 6 * f + 7 * g + 8 * h + 9 * i + 10 * j + 11 * k + 12 * l;
}

/* A negative int must reach a 64-bit long as the same number. */
long widen(long x) { return x < 0 ? -1 : 1; }

int length(const char *s) { return s ? (int)strlen(s) : -1; }

int shout(char *s)
{
    int n = 0;
    for (; *s; ++s, ++n)
        if (*s >= 'a' && *s <= 'z') *s = (char)(*s - 'a' + 'A');
    return n;
}

int store(int *out, int value)
{
    *out = value;
    return 1;
}

/* Only the low 32 bits come back. */
long long wide_result(void) { return 0x100000007LL; }
