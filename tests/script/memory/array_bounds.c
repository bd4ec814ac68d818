/* An index one past the end of a local array, even with a neighbour right after it. */
// out: 3
// error: array_bounds.c Line 11: Illegal use of pointer
int main(void)
{
    int a[3];
    int b = 5;
    int i;
    for (i = 0; i < 3; i++) a[i] = i + 1;
    printf("%d\n", a[2]);
    a[3] = b;
    return 0;
}
