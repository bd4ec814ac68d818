/* The thirteenth nested include is refused, reported in the file that asked for it,
   the twelfth. */
// error: inc/n11.h Line 1: Limitation: too many nested #includes
#include "inc/n0.h"
int main(void) { return DEEPEST; }
