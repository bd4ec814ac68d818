/* Time conversions that do not depend on the clock: gmtime of fixed instants. Only
   the "C" locale exists: setlocale names it and refuses any other, localeconv
   describes it. */
#include <stdio.h>
#include <limits.h>
#include <locale.h>
#include <time.h>
// out: 1970 0 1 4 0
// out: 2001-09-09 01:46:40
// out: Sun Sep  9 01:46:40 2001
// out: 1 1
// out: C C C null
// out: [.] [] 1
int main(void)
{
    time_t t = 0, now;
    struct tm *tm;
    struct lconv *lc;
    char buf[64];
    tm = gmtime(&t);
    printf("%d %d %d %d %d\n", tm->tm_year + 1900, tm->tm_mon, tm->tm_mday, tm->tm_wday, tm->tm_hour);
    t = 1000000000L;
    tm = gmtime(&t);
    strftime(buf, sizeof buf, "%Y-%m-%d %H:%M:%S", tm);
    printf("%s\n", buf);
    printf("%s", asctime(tm));
    now = time(NULL);
    printf("%d %d\n", now > t, difftime(now, t) > 0);
    printf("%s %s %s %s\n", setlocale(LC_ALL, NULL), setlocale(LC_ALL, ""), setlocale(LC_NUMERIC, "POSIX"),
           setlocale(LC_ALL, "de_DE") ? "set" : "null");
    lc = localeconv();
    printf("[%s] [%s] %d\n", lc->decimal_point, lc->thousands_sep, lc->frac_digits == CHAR_MAX);
    return 0;
}
