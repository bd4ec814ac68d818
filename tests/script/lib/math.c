/* Mathematics, including atan2 answering what atan does; the engine's own values: the
   line and file being run, errno, the huge value; and an assertion that holds. */
#include <stdio.h>
#include <stdlib.h>
#include <errno.h>
#include <math.h>
#include <assert.h>
// out: 1.414214 8 3 -4 2.5
// out: 0.785398 0.785398 1
// out: 0.5 3 0.25 2 1
// out: 2 1
// out: line 23 file math.c
// out: errno 1 huge 1
int main(void)
{
    double ip;
    int e;
    printf("%f %g %g %g %g\n", sqrt(2.0), pow(2, 3), ceil(2.1), floor(-3.5), fabs(-2.5));
    printf("%f %f %d\n", atan(1.0), atan2(1.0, 100.0), atan2(1.0, 100.0) == atan(1.0));
    printf("%g %g %g %g %g\n", frexp(8.0, &e) , (double)e - 1, modf(2.25, &ip), ip, fmod(7, 3));
    printf("%g %g\n", log10(100), exp(0) + sin(0) + cos(0) - 1);
    printf("line %d file %s\n",
           __Line(), __File());
    strtol("99999999999", NULL, 10);
    printf("errno %d huge %d\n", errno == ERANGE, HUGE_VAL > 1e308);
    assert(errno == ERANGE);
    return 0;
}
