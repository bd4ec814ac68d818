/* Defining a macro twice is an error even when both definitions agree. */
// error: macro_twice.c Line 4: Redefinition of macro
#define ONE 1
#define ONE 1
int main(void) { return ONE; }
