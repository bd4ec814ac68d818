/* An error inside an included file names that file and its own line. */
// error: inc/bad.h Line 3: Expression error
#include "inc/bad.h"
int main(void) { return 0; }
