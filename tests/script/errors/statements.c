/* The statement-specific messages: a while without its parenthesis. */
// error: statements.c Line 5: While statement missing '('
int main(void)
{
    while 1) ;
    return 0;
}
