/* The 1025th live variable: main's parameter comes on top of 1024 globals, which the
   report on main's line shows were all allowed. */
// error: variables_1025.c Line 7: Limitation: too many variables
#include "inc/doubling.h"
#define VAR(n) int n;
X1024(VAR, v)
int main(int argc)
{
    return argc;
}
