/* Script functions with variable arguments. */
#include <stdio.h>
#include <stdarg.h>
// out: 10 3.5 x
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
    show("%d %g %c\n", total(4, 1, 2, 3, 4), 3.5, 'x');
    return 0;
}
