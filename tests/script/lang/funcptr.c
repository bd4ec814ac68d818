/* Pointers to functions, arrays of them, and recursion through them. */
#include <stdio.h>
// out: 7 12 -1
// out: 120
// out: 3 1 2
typedef int (*binop)(int, int);
int add(int a, int b) { return a + b; }
int mul(int a, int b) { return a * b; }
int sub(int a, int b) { return a - b; }
int apply(binop f, int a, int b) { return f(a, b); }
int fact(int n) { return n <= 1 ? 1 : n * fact(n - 1); }
int compare(const void *a, const void *b) { return *(const int *)a - *(const int *)b; }
int main(void)
{
    binop ops[3];
    int (*pf)(int) = fact;
    int v[3];
    int i, j, t;
    ops[0] = add; ops[1] = &mul; ops[2] = sub;
    printf("%d %d %d\n", apply(ops[0], 3, 4), (*ops[1])(3, 4), ops[2](3, 4));
    printf("%d\n", pf(5));
    v[0] = 3; v[1] = 1; v[2] = 2;
    for (i = 0; i < 3; i++)
        for (j = i + 1; j < 3; j++)
            if (compare(&v[i], &v[j]) > 0) { t = v[i]; v[i] = v[j]; v[j] = t; }
    printf("%d %d %d\n", v[2], v[0], v[1]);
    return 0;
}
