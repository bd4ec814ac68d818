/* An include that cannot be opened; angle brackets never search the script's folder. */
// error: include_missing.c Line 3: Cannot open #include file
#include <inc/bad.h>
int main(void) { return 0; }
