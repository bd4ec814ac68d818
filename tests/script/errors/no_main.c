/* A script without main fails after preprocessing succeeded. */
// error: no_main.c Line 0: You must write 'main' function
int helper(void) { return 1; }
