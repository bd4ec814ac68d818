/* Parameters declared with nested declarators: an array of function pointers, a
   function (which becomes a pointer to one), and a pointer to an array. */
#include <stdio.h>
// out: 12 13
// out: 42
// out: 6
int twice(int x) { return 2 * x; }
int plus(int x) { return x + 1; }
int f4(int (*[4])(int), int);
int f2(int (int x), int);
int sum3(int (*)[3]);
int f4(int (*fs[4])(int), int v) { return fs[0](v) + fs[1](v + 2); }
int f2(int g(int x), int v) { return g(v); }
int sum3(int (*a)[3]) { return (*a)[0] + (*a)[1] + (*a)[2]; }
int main(void)
{
    int (*fs[4])(int);
    int row[3];
    fs[0] = plus;
    fs[1] = plus;
    row[0] = 1, row[1] = 2, row[2] = 3;
    printf("%d %d\n", f4(fs, 4), f4(fs, 5) - 1);
    printf("%d\n", f2(twice, 21));
    printf("%d\n", sum3(&row));
    return 0;
}
