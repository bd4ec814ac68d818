/* Old-style definitions, implicit int, and a function used before its definition. */
#include <stdio.h>

int power();

main()
{
    printf("%d %d\n", power(2, 10), gcd(84, 36));
    return 0;
}

int power(base, n)
int base, n;
{
    int p;
    for (p = 1; n > 0; --n)
        p = p * base;
    return p;
}

int gcd(a, b)
int a;
int b;
{
    return b == 0 ? a : gcd(b, a % b);
}
