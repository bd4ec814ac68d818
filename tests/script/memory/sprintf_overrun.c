/* sprintf into a buffer too small for the text. */
// error: sprintf_overrun.c Line 6: Illegal use of pointer
int main(void)
{
    char small[4];
    sprintf(small, "%d", 123456);
    return 0;
}
