/* printf asked for more arguments than it was given. */
// error: missing_args.c Line 5: Argument mismatch error
int main(void)
{
    printf("%d %d\n", 1);
    return 0;
}
