/* An error three hundred calls deep reports the line of the deepest call. */
// error: deep_call_line.c Line 6: Divide by 0
int dive(int n)
{
    if (n == 0)
        return 100 / n;
    return dive(n - 1) + 1;
}
int main(void)
{
    int r = dive(300);
    return r;
}
