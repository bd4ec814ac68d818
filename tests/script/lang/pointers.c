/* Pointers, arrays of arrays, pointers to pointers, pointer arithmetic. */
#include <stdio.h>
// out: 10 20 30
// out: 2 12
// out: 6 5
// out: abc bc c
// out: 1 4 9 16
// out: 8 3
int sum(int *p, int n)
{
    int s = 0;
    while (n--)
        s += *p++;
    return s;
}
void set(int **pp, int *target) { *pp = target; }
int main(void)
{
    int a[3];
    int m[3][4];
    int i, j, x = 5, y = 6;
    int *p = &x;
    char *s = "abc";
    char **ps = &s;
    int *q;
    a[0] = 10; *(a + 1) = 20; 2[a] = 30;
    printf("%d %d %d\n", a[0], a[1], a[2]);
    for (i = 0; i < 3; i++)
        for (j = 0; j < 4; j++)
            m[i][j] = i * 10 + j;
    printf("%d %d\n", (int)(&a[2] - &a[0]), m[1][2]);
    set(&p, &y);
    printf("%d %d\n", *p, x);
    printf("%s %s %s\n", *ps, *ps + 1, &s[2]);
    for (i = 0; i < 4; i++)
        m[0][i] = (i + 1) * (i + 1);
    q = m[0];
    printf("%d %d %d %d\n", q[0], q[1], q[2], *(q + 3));
    printf("%d %d\n", (int)sizeof(m[0]) / 2, sum(a, 3) / 20);
    return 0;
}
