/* The end of the main file with a conditional still open. */
// error: if_eof.c Line 4: Unexpected end of file. Check #ifxxx directives
#ifdef __VEKC__
int main(void) { return 0; }
