/* Loops, switch with fallthrough, goto, break and continue. */
#include <stdio.h>
// out: 0 1 2 3 4
// out: 10 8 6
// out: 5
// out: two three default
// out: one
// out: found 2 6
// out: 9
// exit: 7
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
    return 7;
}
