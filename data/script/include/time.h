/* Time and date. The functions are built in; clock() counts milliseconds. */
#ifndef __TIME_H
#define __TIME_H
#ifndef _SIZE_T
#define _SIZE_T
typedef unsigned int size_t;
#endif
#ifndef NULL
#define NULL ((void *)0)
#endif
typedef long time_t;
typedef long clock_t;
#define CLOCKS_PER_SEC 1000
#define CLK_TCK 1000
struct tm {
    int tm_sec;
    int tm_min;
    int tm_hour;
    int tm_mday;
    int tm_mon;
    int tm_year;
    int tm_wday;
    int tm_yday;
    int tm_isdst;
};
/* Built-in functions: generated from script/builtins.def */
char *asctime(const struct tm *t);
struct tm *gmtime(const time_t *t);
struct tm *localtime(const time_t *t);
time_t mktime(struct tm *t);
time_t time(time_t *t);
clock_t clock(void);
double difftime(time_t t1, time_t t0);
char *ctime(const time_t *t);
size_t strftime(char *buffer, size_t size, const char *format, const struct tm *t);
/* End of built-in functions */
#endif
