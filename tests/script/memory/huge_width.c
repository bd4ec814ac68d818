/* A field width beyond what a line can use. */
// error: huge_width.c Line 5: Argument mismatch error
int main(void)
{
    printf("%100000000d\n", 1);
    return 0;
}
