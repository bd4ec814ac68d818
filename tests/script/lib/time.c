/* Time conversions that do not depend on the clock: gmtime of fixed instants. */
#include <stdio.h>
#include <time.h>
// out: 1970 0 1 4 0
// out: 2001-09-09 01:46:40
// out: Sun Sep  9 01:46:40 2001
// out: 1 1
int main(void)
{
    time_t t = 0, now;
    struct tm *tm;
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
    return 0;
}
