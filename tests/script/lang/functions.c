/* Pointers to functions, arrays of them and recursion through them; parameters
   declared with nested declarators (an array of function pointers, a function, which
   becomes a pointer to one, and a pointer to an array); variable arguments. */
#include <stdio.h>
#include <stdarg.h>
// out: 7 12 -1
// out: 120
// out: 3 1 2
// out: 12 13 42 6
// out: 10 3.5 x
typedef int (*binop)(int, int);
int add(int a, int b) { return a + b; }
int mul(int a, int b) { return a * b; }
int sub(int a, int b) { return a - b; }
int apply(binop f, int a, int b) { return f(a, b); }
int fact(int n) { return n <= 1 ? 1 : n * fact(n - 1); }
int compare(const void *a, const void *b) { return *(const int *)a - *(const int *)b; }
int twice(int x) { return 2 * x; }
int plus(int x) { return x + 1; }
int f4(int (*[4])(int), int);
int f2(int (int x), int);
int sum3(int (*)[3]);
int f4(int (*fs[4])(int), int v) { return fs[0](v) + fs[1](v + 2); }
int f2(int g(int x), int v) { return g(v); }
int sum3(int (*a)[3]) { return (*a)[0] + (*a)[1] + (*a)[2]; }
int total(int n, ...)
{
    va_list ap;
    int s = 0;
    va_start(ap, n);
    while (n--)
        s += va_arg(ap, int);
    va_end(ap);
    return s;
}
void show(const char *fmt, ...)
{
    va_list ap;
    va_start(ap, fmt);
    printf(fmt, va_arg(ap, int), va_arg(ap, double), va_arg(ap, int));
    va_end(ap);
}
int main(void)
{
    binop ops[3];
    int (*pf)(int) = fact;
    int (*fs[4])(int);
    int v[3], row[3];
    int i, j, t;
    ops[0] = add; ops[1] = &mul; ops[2] = sub;
    printf("%d %d %d\n", apply(ops[0], 3, 4), (*ops[1])(3, 4), ops[2](3, 4));
    printf("%d\n", pf(5));
    v[0] = 3; v[1] = 1; v[2] = 2;
    for (i = 0; i < 3; i++)
        for (j = i + 1; j < 3; j++)
            if (compare(&v[i], &v[j]) > 0) { t = v[i]; v[i] = v[j]; v[j] = t; }
    printf("%d %d %d\n", v[2], v[0], v[1]);
    fs[0] = plus;
    fs[1] = plus;
    row[0] = 1, row[1] = 2, row[2] = 3;
    printf("%d %d %d %d\n", f4(fs, 4), f4(fs, 5) - 1, f2(twice, 21), sum3(&row));
    show("%d %g %c\n", total(4, 1, 2, 3, 4), 3.5, 'x');
    return 0;
}
