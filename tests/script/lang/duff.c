/* Case labels inside nested statements (Duff's device) and goto into a block. */
#include <stdio.h>
// out: 13 13
// out: inside 2
// out: loop 3 4 5
// out: odd
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
int main(void)
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
    return 0;
}
