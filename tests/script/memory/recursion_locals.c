/* Recursion with big frames runs out of data space first. */
// error: recursion_locals.c Line 7: Limitation: data space full
int down(int n)
{
    char frame[1000];
    frame[0] = (char)n;
    return down(n + 1) + frame[0];
}
int main(void) { return down(0); }
