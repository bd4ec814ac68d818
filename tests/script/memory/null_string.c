/* A null pointer where the library needs a string. */
// error: null_string.c Line 5: Not an address
int main(void)
{
    return strlen(0);
}
