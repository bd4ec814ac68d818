/* Macros with arguments, stringizing, pasting, rescanning and conditionals. In #if,
   the operand that "&&", "||" or "?:" does not need is not evaluated, so a division
   by zero there is no error (one that is evaluated still is: see errors/); a wide
   character constant has its character's value, in code and in #if. */
#include <stdio.h>
#include "inc/square.h"
// out: 49 13
// out: x + 1 = 5
// out: 12 3
// out: taken elif
// out: 261 defined
// out: 3 4
// out: and or cond nested
// out: 120 10 39 1
// out: 72 preproc.c
#define STR(x) #x
#define SHOW(e) printf(STR(e) " = %d\n", e)
#define CAT(a, b) a##b
#define TWICE(x) ((x) * 2)
#define SIX TWICE(3)
#define MAX(a, b) ((a) > (b) ? (a) : (b))
#define LONGCALL(a, b) \
    ((a) + (b))
#if defined(SQUARE) && !defined(NOPE) && (2 * 3 == 6)
#define PICK 1
#elif 1
#define PICK 2
#endif
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
#if L'a' == 97
#define WIDE_IN_IF 1
#else
#define WIDE_IN_IF 0
#endif
#

#pragma anything at all
#line 500
int main(void)
{
    int x = 4, xy = 12;
    printf("%d %d\n", SQUARE(x + 3), MAX(x, 13));
    SHOW(x + 1);
    printf("%d %d\n", CAT(x, y), LONGCALL(1,
                                          2));
#if PICK == 2
    printf("wrong\n");
#elif PICK == 1
    printf("taken elif\n");
#else
    printf("wrong\n");
#endif
#ifdef __32BIT__
    printf("%d defined\n", __VEKC__);
#endif
    printf("%d %d\n", __JBUFSIZE__ / 36, SIX - 4 + __BCC__ / 1312 + 1);
    printf("%s %s %s %s\n", AND, OR, COND, NESTED);
    printf("%d %d %d %d\n", L'x', L'\n', L'\'', WIDE_IN_IF);
    printf("%d %s\n", __LINE__, __FILE__);
    return 0;
}
