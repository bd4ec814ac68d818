/* An unknown directive, after null, #pragma and #line lines that pass silently. */
// error: directives.c Line 6: Unknown preprocessor directive
#
#pragma whatever (it may say)
#line 1 "elsewhere"
#frobnicate
int main(void) { return 0; }
