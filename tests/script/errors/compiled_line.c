/* An error in a function called from a compiled loop reports the line of the
   statement it happens in, even when the statement spans lines. */
// out: 5
// out: 10
// error: compiled_line.c Line 10: Divide by 0
int share(int total, int parts)
{
    int each;
    parts = parts - 1;
    each =
        total / parts;
    return each;
}
int main(void)
{
    int i;
    for (i = 3; i > 0; i--)
        printf("%d\n", share(10, i));
    return 0;
}
