/* An #else outside any conditional. */
// error: conditionals.c Line 4: Unexpected #else
int x;
#else
int main(void) { return 0; }
