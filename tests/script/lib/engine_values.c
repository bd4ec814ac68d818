/* The engine's own values: the line and file being run, errno, the huge value; and an
   assertion that holds. */
#include <stdio.h>
#include <stdlib.h>
#include <errno.h>
#include <math.h>
#include <assert.h>
// out: line 13 file engine_values.c
// out: errno 1 huge 1
int main(void)
{
    printf("line %d file %s\n",
           __Line(), __File());
    strtol("99999999999", NULL, 10);
    printf("errno %d huge %d\n", errno == ERANGE, HUGE_VAL > 1e308);
    assert(errno == ERANGE);
    return 0;
}
