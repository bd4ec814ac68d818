/* A FILE handle that fopen never gave. */
// error: bad_file.c Line 6: Argument mismatch error
#include <stdio.h>
int main(void)
{
    fputc('x', (FILE *)4096);
    return 0;
}
