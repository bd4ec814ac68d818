/* A function with a value that ends without returning one. */
// error: missing_return.c Line 5: Function should return value
int f(int x)
{
    if (x) return 1;
}
int main(void) { return f(0); }
