/* A string constant that reaches the end of its line. */
// error: string_eol.c Line 5: Unterminated string or character constant
int main(void)
{
    printf("abc);
    return 0;
}
