/* A wide character constant has its character's value, in code and in #if. */
#include <stdio.h>
// out: 120 10 39 1
#if L'a' == 97
#define IN_IF 1
#else
#define IN_IF 0
#endif
int main(void)
{
    int x = L'x', nl = L'\n', q = L'\'';
    printf("%d %d %d %d\n", x, nl, q, IN_IF);
    return 0;
}
