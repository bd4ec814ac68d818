/* malloc answers NULL for sizes it cannot give; the script goes on. */
// out: null null ok
#include <stdlib.h>
int main(void)
{
    void *a = malloc(-1);
    void *b = calloc(100000, 100000);
    char *c = (char *)malloc(0);
    printf("%s %s %s\n", a ? "got" : "null", b ? "got" : "null", c ? "ok" : "null");
    free(c);
    return 0;
}
