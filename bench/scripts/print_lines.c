/* Prints 100,000 numbered lines to standard output. */
#include <stdio.h>

int main(void)
{
    long i;
    for (i = 1; i <= 100000; i++) printf("line %ld of the console benchmark\n", i);
    return 0;
}
