/* Functions run as instructions and functions the tree evaluator runs (those that
   call setjmp) call each other, directly and through pointers. Compiled functions
   calling one another: through a pointer that changes while the recursion runs, with
   parameters of every width, in frames that start zeroed whatever the previous call
   left there, and returning from inside loops and switches into the middle of the
   caller's expression. */
#include <stdio.h>
#include <setjmp.h>
// out: 55 720 5040
// out: 120 10 7
// out: 7 7 2000
// out: 3 -2 2.5 x
// out: 5 27
// out: 1 1 0
// out: 99899.75 -126
// out: 24 6
// out: 6 1
// out: 1040
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
void mixed(void)
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
}
int (*next)(int);
int down(int n) { return n == 0 ? 0 : 1 + next(n - 1); }
int tens(int n)
{
    if (n == 0) return 0;
    next = n % 3 ? down : tens;
    return 10 + next(n - 1);
}
int odd(int n);
int even(int n) { return n == 0 ? 1 : odd(n - 1); }
int odd(int n) { return n == 0 ? 0 : even(n - 1); }
double mix(char c, short s, unsigned char u, double d, float f, long l) { return c + s + u + d + f + l; }
int wrap(char c, int n) { return n == 0 ? c : wrap(c + 1, n - 1); }
int dirty(int a, int b, int c) { int x = a, y = b, z = c; return x + y + z; }
int clean(int a, int b, int c) { int x, y, z; return x + y + z + a + b + c; }
int dirtyArray(int n) { int v[5]; int i; for (i = 0; i < 5; i++) v[i] = n; return v[4]; }
int cleanArray(int n) { int v[5]; return v[0] + v[4] + n; }
int find(int n)
{
    int i;
    for (i = 0;; i++)
        switch (i) {
        case 3:
            if (i == n) return i * 10;
            break;
        default:
            while (i == n) return i;
        }
}
int main(void)
{
    mixed();
    next = down;
    printf("%d %d\n", down(5), tens(9));
    printf("%d %d %d\n", even(300), odd(301), even(7));
    printf("%.2f %d\n", mix(-1, -300, 200, 0.5, 0.25, 100000), wrap(120, 10));
    printf("%d %d\n", dirty(7, 8, 9), clean(1, 2, 3));
    printf("%d %d\n", dirtyArray(6), cleanArray(1));
    printf("%d\n", 1000 + find(3) + find(5) * 2);
    return 0;
}
