/* Statement errors carry their own numbers: a missing semicolon, and a declaration
   that does not end where it should. */
// error: syntax.c Line 8: Missing ';'
int main(void)
{
    int a;
    a = 1
    return a;
}
