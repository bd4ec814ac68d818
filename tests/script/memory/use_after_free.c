/* A freed block is gone: its addresses are never given out again. */
// out: 7
// error: use_after_free.c Line 11: Not an address
#include <stdlib.h>
int main(void)
{
    int *p = (int *)malloc(sizeof(int));
    *p = 7;
    printf("%d\n", *p);
    free(p);
    return *p;
}
