/* Reading through a null pointer: no storage there, error 42. */
// error: null_pointer.c Line 6: Not an address
int main(void)
{
    int *p = 0;
    return *p;
}
