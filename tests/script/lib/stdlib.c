/* Memory blocks (NULL for sizes malloc cannot give, and the script goes on), number
   conversion, random numbers, the environment and exit. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <ctype.h>
// args: one two
// out: 3 one two
// out: 42 -17 255 3.25 12 [ rest]
// out: 2147483647 4294967295
// out: 10 20 30 0
// out: null null ok
// out: 1 1 0 1 1 0 1 A z
// out: 1 1 5758 10113
// out: 1 2 3 5 8
// out: set
// exit: 9
int cmp(const void *a, const void *b) { return *(const int *)a - *(const int *)b; }
int main(int argc, char *argv[])
{
    int *v, i, *w;
    char *end;
    int nums[5];
    printf("%d %s %s\n", argc, argv[1], argv[2]);
    printf("%d %ld %lu %g %d [%s]\n", atoi("42"), atol("-17"), strtoul("ff", NULL, 16), atof("3.25"),
           (int)strtol("12 rest", &end, 10), end);
    printf("%ld %lu\n", strtol("99999999999", NULL, 10), strtoul("99999999999", NULL, 10));
    v = (int *)malloc(3 * sizeof(int));
    for (i = 0; i < 3; i++) v[i] = (i + 1) * 10;
    v = (int *)realloc(v, 4 * sizeof(int));
    w = (int *)calloc(4, sizeof(int));
    printf("%d %d %d %d\n", v[0], v[1], v[2], w[3]);
    free(v);
    free(w);
    free(NULL);
    v = (int *)malloc(-1);
    w = (int *)calloc(100000, 100000);
    end = (char *)malloc(0);
    printf("%s %s %s\n", v ? "got" : "null", w ? "got" : "null", end ? "ok" : "null");
    free(end);
    printf("%d %d %d %d %d %d %d %c %c\n", isdigit('5') != 0, isalpha('q') != 0, isupper('q') != 0, isspace('\t') != 0,
           isxdigit('F') != 0, ispunct('a') != 0, isalnum('0') != 0, toupper('a'), tolower('Z'));
    srand(1);
    i = rand();
    srand(1);
    printf("%d %d %d %d\n", rand() == i, abs(-1), rand(), rand());
    nums[0] = 8; nums[1] = 3; nums[2] = 1; nums[3] = 5; nums[4] = 2;
    qsort(nums, 5, sizeof(int), cmp);
    printf("%d %d %d %d %d\n", nums[0], nums[1], nums[2], nums[3], nums[4]);
    putenv("VEKC_TEST_VAR=set");
    printf("%s\n", getenv("VEKC_TEST_VAR"));
    exit(9);
    return 0;
}
