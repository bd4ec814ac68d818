/* An operand that "||" needs is evaluated: its division by zero is an error. */
// error: if_evaluated.c Line 3: #if error
#if 0 || (0 && 1) || 1 / 0
#endif
int main(void) { return 0; }
