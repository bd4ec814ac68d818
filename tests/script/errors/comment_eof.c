/* A comment left open at the end of the text. */
// error: comment_eof.c Line 5: Unexpected end of file (probably unterminated comment)
int main(void) { return 0; }
/* never closed
