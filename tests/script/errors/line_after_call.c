/* An error right after a call returns reports the caller's line, not the last one
   the callee ran. */
// error: line_after_call.c Line 14: Divide by 0
int zero(int n)
{
    if (n > 0)
        return zero(n - 1);
    return 0;
}
int main(void)
{
    int a = 1;
    a = a + 2;
    return 7 / zero(20);
}
