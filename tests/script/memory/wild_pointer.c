/* An address made up from an integer points at nothing the script owns. */
// error: wild_pointer.c Line 6: Not an address
int main(void)
{
    char *p = (char *)123456789;
    *p = 1;
    return 0;
}
