/* Copying more than a malloc block holds. */
// error: heap_overrun.c Line 8: Illegal use of pointer
#include <stdlib.h>
#include <string.h>
int main(void)
{
    char *p = (char *)malloc(4);
    strcpy(p, "four");
    return 0;
}
