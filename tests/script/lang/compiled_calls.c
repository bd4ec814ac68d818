/* Compiled functions calling one another: through a pointer that changes while the
   recursion runs, with parameters of every width, in frames that start zeroed
   whatever the previous call left there, and returning from inside loops and
   switches into the middle of the caller's expression. */
#include <stdio.h>
// out: 5 27
// out: 1 1 0
// out: 99899.75 -126
// out: 24 6
// out: 6 1
// out: 1040
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
    next = down;
    printf("%d %d\n", down(5), tens(9));
    printf("%d %d %d\n", even(300), odd(301), even(7));
    printf("%.2f %d\n", mix(-1, -300, 200, 0.5, 0.25, 100000), wrap(120, 10));
    printf("%d %d\n", dirty(7, 8, 9), clean(1, 2, 3));
    printf("%d %d\n", dirtyArray(6), cleanArray(1));
    printf("%d\n", 1000 + find(3) + find(5) * 2);
    return 0;
}
