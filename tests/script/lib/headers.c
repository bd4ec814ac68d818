/* Every shipped header at once, some twice: their prototypes give the results their
   types. */
#include <assert.h>
#include <conio.h>
#include <ctype.h>
#include <dir.h>
#include <errno.h>
#include <float.h>
#include <io.h>
#include <limits.h>
#include <locale.h>
#include <math.h>
#include <setjmp.h>
#include <stdarg.h>
#include <stddef.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <time.h>
#include <windows.h>
#include <editor/app.h>
#include <editor/dlg.h>
#include <editor/doc.h>
#include <editor/options.h>
#include <stdio.h>
#include <assert.h>
// out: 1970 0 bc
// exit: 8
int tabSize(void)
{
    return Zol_GetTabSize();
}
int main(void)
{
    time_t t = 0;
    struct stat st;
    printf("%d %d %s\n", gmtime(&t)->tm_year + 1900, stat(".", &st), strchr("abc", 'b'));
    return tabSize();
}
