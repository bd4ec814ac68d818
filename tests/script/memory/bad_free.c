/* Freeing an address that malloc did not give, or freeing twice. */
// error: bad_free.c Line 9: Illegal use of pointer
#include <stdlib.h>
int main(void)
{
    char *p = (char *)malloc(8);
    free(p + 1 - 1);
    p = (char *)malloc(8);
    free(p + 1);
    return 0;
}
