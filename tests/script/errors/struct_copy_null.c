/* A struct copied through a null pointer. */
// error: struct_copy_null.c Line 8: Not an address
struct pt { int x, y; };
int main(void)
{
    struct pt a, *p = 0;
    a.x = 1;
    *p = a;
    return 0;
}
