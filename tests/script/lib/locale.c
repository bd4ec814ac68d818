/* Only the "C" locale exists: setlocale names it and refuses any other, localeconv
   describes it. */
#include <stdio.h>
#include <limits.h>
#include <locale.h>
// out: C C C null
// out: [.] [] 1
int main(void)
{
    struct lconv *lc;
    printf("%s %s %s %s\n", setlocale(LC_ALL, NULL), setlocale(LC_ALL, ""), setlocale(LC_NUMERIC, "POSIX"),
           setlocale(LC_ALL, "de_DE") ? "set" : "null");
    lc = localeconv();
    printf("[%s] [%s] %d\n", lc->decimal_point, lc->thousands_sep, lc->frac_digits == CHAR_MAX);
    return 0;
}
