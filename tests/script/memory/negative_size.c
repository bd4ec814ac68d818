/* A negative size to memset. */
// error: negative_size.c Line 7: Argument mismatch error
#include <string.h>
int main(void)
{
    char buf[8];
    memset(buf, 0, -1);
    return 0;
}
