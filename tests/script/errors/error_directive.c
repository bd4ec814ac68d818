/* #error stops the run; inside a false block it does not. */
// error: error_directive.c Line 6: #error directive
#if 0
#error not this one
#endif
#error this one
int main(void) { return 0; }
