/* printf conversions, flags, widths, precisions and lengths; sprintf into a buffer. */
#include <stdio.h>
// out: [   42] [42   ] [00042] [+42] [ 42]
// out: [2a] [2A] [0x2a] [52] [052] [4294967295]
// out: [3.14] [  3.142] [3.141590e+00] [3.14159] [1E+20] [-0.5]
// out: [abc] [  abc] [ab   ] [x] [%]
// out: [-7] [65535] [-1] [12345678]
// out: 11 [hello world] 8
// out: [*   *]
int main(void)
{
    char buf[32];
    int n, count;
    long big = 12345678L;
    printf("[%5d] [%-5d] [%05d] [%+d] [% d]\n", 42, 42, 42, 42, 42);
    printf("[%x] [%X] [%#x] [%o] [%#o] [%u]\n", 42, 42, 42, 42, 42, -1);
    printf("[%.2f] [%7.3f] [%e] [%g] [%G] [%g]\n", 3.14159, 3.14159, 3.14159, 3.14159, 1e20, -0.5);
    printf("[%s] [%5s] [%-5.2s] [%c] [%%]\n", "abc", "abc", "abc", 'x');
    printf("[%hd] [%hu] [%ld] [%ld]\n", -7, 65535, -1L, big);
    n = sprintf(buf, "%s %s", "hello", "world");
    printf("%d [%s] %n", n, buf, &count);
    printf("%d\n", count - 9);
    printf("[%*c%*c]\n", 1, '*', 4, '*');
    return 0;
}
