/* Block scopes, shadowing, static locals, globals and initialisers. */
#include <stdio.h>
// out: 1 2 1
// out: 1 2 3
// out: hello 6 0
// out: 4 0 3
int g = 1;
int counter(void)
{
    static int n;
    return ++n;
}
char greeting[] = "hello";
int table[2][2] = {{1, 2}, {3}};
int main(void)
{
    int x = g;
    {
        int g = 2;
        printf("%d %d ", x, g);
    }
    printf("%d\n", g);
    counter();
    counter();
    printf("%d %d %d\n", 1, 2, counter());
    printf("%s %d %d\n", greeting, (int)sizeof greeting, greeting[5]);
    {
        int a[4] = {4};
        printf("%d %d %d\n", a[0], a[3], table[1][0]);
    }
    return 0;
}
