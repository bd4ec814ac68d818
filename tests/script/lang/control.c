/* Loops, switch with fallthrough, goto, break and continue; case labels inside nested
   statements (Duff's device) and goto into a block; setjmp and longjmp across calls,
   with the value passed back. */
#include <stdio.h>
#include <setjmp.h>
// out: 0 1 2 3 4
// out: 10 8 6
// out: 5
// out: two three default
// out: one
// out: found 2 6
// out: 9
// out: 13 13
// out: inside 2
// out: loop 3 4 5
// out: odd
// out: first 0
// out: deep 3
// out: caught 7
// out: zero becomes 1
// exit: 7
void copy(char *to, const char *from, int count)
{
    int n = (count + 7) / 8;
    switch (count % 8) {
    case 0: do { *to++ = *from++;
    case 7:      *to++ = *from++;
    case 6:      *to++ = *from++;
    case 5:      *to++ = *from++;
    case 4:      *to++ = *from++;
    case 3:      *to++ = *from++;
    case 2:      *to++ = *from++;
    case 1:      *to++ = *from++;
            } while (--n > 0);
    }
}
void intoBlocks(void)
{
    char buf[32];
    int i = 2;
    copy(buf, "hello, world!", 14);
    printf("%d %d\n", (int)strlen(buf), 13);
    goto in;
    {
        i = 100;
    in:
        printf("inside %d\n", i);
    }
    i = 3;
    goto body;
    while (i < 6) {
        printf(" %d", i);
    body:
        if (i == 3) printf("loop %d", i);
        i++;
    }
    printf("\n");
    switch (i) {
    default:
        if (i > 0) {
    case 7:
            printf("odd\n");
        }
    }
}
jmp_buf env;
void dive(int n)
{
    if (n == 3) {
        printf("deep %d\n", n);
        longjmp(env, 7);
    }
    dive(n + 1);
}
void jumps(void)
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
}
int main(void)
{
    int i, j, n = 0;
    for (i = 0; i < 10; i++) {
        if (i == 5)
            break;
        printf(i ? " %d" : "%d", i);
    }
    printf("\n");
    i = 10;
    while (i > 4) {
        printf(i == 10 ? "%d" : " %d", i);
        i -= 2;
        if (i == 6) {
            printf(" %d", i);
            break;
        }
    }
    printf("\n");
    i = 0;
    do {
        i++;
        if (i < 5)
            continue;
    } while (i < 5);
    printf("%d\n", i);
    switch (2) {
    case 1: printf("one ");
    case 2: printf("two ");
    case 3: printf("three ");
    default: printf("default\n");
    }
    switch (1) {
    case 1: printf("one\n"); break;
    case 2: printf("two\n");
    }
    for (i = 0; i < 10; i++)
        for (j = 0; j < 10; j++)
            if (i * j == 12 && i < j)
                goto done;
done:
    printf("found %d %d\n", i, j);
again:
    n += 3;
    if (n < 9)
        goto again;
    printf("%d\n", n);
    intoBlocks();
    jumps();
    return 7;
}
