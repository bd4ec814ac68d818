/* A FILE handle used after fclose. */
// error: closed_file.c Line 9: Argument mismatch error
#include <stdio.h>
int main(void)
{
    FILE *f = tmpfile();
    fputc('x', f);
    fclose(f);
    fputc('y', f);
    return 0;
}
