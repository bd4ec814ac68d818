/* Arrays of arrays passed to functions, and a recursive determinant. */
#include <stdio.h>

#define N 3

static void mult(int a[N][N], int b[N][N], int r[N][N])
{
    int i, j, k;
    for (i = 0; i < N; i++)
        for (j = 0; j < N; j++) {
            r[i][j] = 0;
            for (k = 0; k < N; k++)
                r[i][j] += a[i][k] * b[k][j];
        }
}

static long det(int n, int m[N][N])
{
    int sub[N][N];
    long d = 0;
    int c, i, j, sign = 1;
    if (n == 1)
        return m[0][0];
    for (c = 0; c < n; c++) {
        for (i = 1; i < n; i++)
            for (j = 0; j < n; j++) {
                if (j < c) sub[i - 1][j] = m[i][j];
                else if (j > c) sub[i - 1][j - 1] = m[i][j];
            }
        d += sign * m[0][c] * det(n - 1, sub);
        sign = -sign;
    }
    return d;
}

int main(void)
{
    int a[N][N] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
    int id[N][N] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    int r[N][N];
    int i, j;
    mult(a, id, r);
    for (i = 0; i < N; i++) {
        for (j = 0; j < N; j++)
            printf("%3d", r[i][j]);
        printf("\n");
    }
    printf("det %ld\n", det(N, a));
    return 0;
}
