/* Functions that the scripts of tests/script/os call through CallDLLFunc. */
#include <string.h>

int add3(int a, int b, int c) { return a + b + c; }
/* The last six of twelve words travel on the stack. */
int weigh12(int a, int b, int c, int d, int e, int f, int g, int h, int i, int j, int k, int l)
{
    return a + 2 * b + 3 * c + 4 * d + 5 * e + 6 * f + 7 * g + 8 * h + 9 * i + 10 * j + 11 * k + 12 * l;
}
/* A negative int must reach a 64-bit long as the same number. */
long widen(long x) { return x < 0 ? -1 : 1; }
int length(const char *s) { return s ? (int)strlen(s) : -1; }
int store(int *out, int value) { return *out = value, 1; }
char *fill(char *s, int c, int n) { return memset(s, c, (size_t)n); }
/* Only the low 32 bits come back. */
long long wide_result(void) { return 0x100000007LL; }
