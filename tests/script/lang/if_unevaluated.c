/* In #if, the operand that "&&", "||" or "?:" does not need is not evaluated, so a
   division by zero there is no error; one that is evaluated still is (see errors/). */
#include <stdio.h>
// out: and or cond nested
#if 0 && (1 / 0)
#error the right of && was taken
#else
#define AND "and"
#endif
#if 1 || (1 % 0)
#define OR "or"
#endif
#if (1 ? 2 : 1 / 0) == 2 && (0 ? 1 / 0 : 3) == 3
#define COND "cond"
#endif
#if 0 && (1 || 1 / 0) || (1 && (0 && 5 / 0)) == 0
#define NESTED "nested"
#endif
int main(void)
{
    printf("%s %s %s %s\n", AND, OR, COND, NESTED);
    return 0;
}
