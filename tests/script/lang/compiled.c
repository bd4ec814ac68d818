/* Functions run as instructions and functions the tree evaluator runs (those that
   call setjmp) call each other, directly and through pointers. */
#include <stdio.h>
#include <setjmp.h>
// out: 55 720 5040
// out: 120 10 7
// out: 7 7 2000
// out: 3 -2 2.5 x
int (*self)(int);
jmp_buf env;
int fib(int n) { return n < 2 ? n : self(n - 1) + self(n - 2); }
int factC(int n);
int factE(int n)
{
    jmp_buf here;
    if (setjmp(here) == 0 && n > 1) return n * factC(n - 1);
    return 1;
}
int factC(int n) { return n > 1 ? n * factE(n - 1) : 1; }
int classify(int n)
{
    int i, s = 0;
    for (i = 0; i < n; i++) {
        switch (i % 3) {
        case 0: continue;
        case 1: s += 1; break;
        default:
            if (i > 7) return s * 10;
            s += 2;
        }
        s += 1;
    }
    return s;
}
int deep(int n)
{
    if (n == 0) longjmp(env, 7);
    return deep(n - 1) + 1;
}
struct pair { int a, b; };
struct pair swap(struct pair p) { struct pair q; q.a = p.b; q.b = p.a; return q; }
double half(int n) { return n / 2.0; }
int main(void)
{
    struct pair p;
    int i, caught = 0, last = 0;
    int (*f)(int) = factE;
    self = fib;
    printf("%d %d %d\n", self(10), factC(6), f(7));
    printf("%d %d %d\n", classify(10), classify(6), classify(5));
    for (i = 0; i < 2000; i++) {
        last = setjmp(env);
        if (last == 0) deep(20);
        else caught++;
    }
    printf("%d %d %d\n", last, deep == deep ? 7 : 0, caught);
    p.a = -2;
    p.b = 3;
    p = swap(p);
    printf("%d %d %.1f %c\n", p.a, p.b, half(5), "yx"[p.a - 2]);
    return 0;
}
