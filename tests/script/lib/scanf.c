/* scanf, sscanf and gets over standard input and strings. */
#include <stdio.h>
// in: 12 -5 3.5 word
// in: 0x1f rest of line
// in: second line
// out: 4 12 -5 3.50 word
// out: 1 31 [rest of line]
// out: [second line]
// out: 3 7 ab 2.25 [xyz]
// out: 2 10 255
// out: -1
int main(void)
{
    int a, b, n, x;
    float f;
    double d;
    char w[16], line[64], s[4], t[8];
    n = scanf("%d %d %f %s", &a, &b, &f, w);
    printf("%d %d %d %.2f %s\n", n, a, b, f, w);
    n = scanf("%i %[^\n]", &x, line);
    printf("%d %d [%s]\n", n - 1, x, line);
    getchar();
    gets(line);
    printf("[%s]\n", line);
    n = sscanf("7 abc 2.25 xyz!", "%d %2s%*c %lf %[a-z]", &a, s, &d, t);
    printf("%d %d %s %g [%s]\n", n - 1, a, s, d, t);
    n = sscanf("10 ff", "%d %x", &a, &b);
    printf("%d %d %d\n", n, a, b);
    printf("%d\n", scanf("%d", &a));
    return 0;
}
