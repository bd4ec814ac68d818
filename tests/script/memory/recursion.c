/* Recursion without end stops at the evaluation stack. */
// error: recursion.c Line 5: Stack owerflow
int down(int n)
{
    return down(n + 1);
}
int main(void) { return down(0); }
