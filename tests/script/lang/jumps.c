/* setjmp and longjmp across calls, with the value passed back. */
#include <stdio.h>
#include <setjmp.h>
// out: first 0
// out: deep 3
// out: caught 7
// out: zero becomes 1
jmp_buf env;
int depth;
void dive(int n)
{
    depth = n;
    if (n == 3) {
        printf("deep %d\n", n);
        longjmp(env, 7);
    }
    dive(n + 1);
}
int main(void)
{
    int r;
    r = setjmp(env);
    if (r == 0) {
        printf("first %d\n", r);
        dive(0);
    } else {
        printf("caught %d\n", r);
    }
    if (setjmp(env) == 0)
        longjmp(env, 0);
    else
        printf("zero becomes 1\n");
    return 0;
}
