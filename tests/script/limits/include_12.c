/* Twelve nested includes are allowed. */
// exit: 12
#include "inc/n1.h"
int main(void) { return DEEPEST; }
