/* Mathematics, including atan2 answering what atan does. */
#include <stdio.h>
#include <math.h>
// out: 1.414214 8 3 -4 2.5
// out: 0.785398 0.785398 1
// out: 0.5 3 0.25 2 1
// out: 2 1
int main(void)
{
    double ip;
    int e;
    printf("%f %g %g %g %g\n", sqrt(2.0), pow(2, 3), ceil(2.1), floor(-3.5), fabs(-2.5));
    printf("%f %f %d\n", atan(1.0), atan2(1.0, 100.0), atan2(1.0, 100.0) == atan(1.0));
    printf("%g %g %g %g %g\n", frexp(8.0, &e) , (double)e - 1, modf(2.25, &ip), ip, fmod(7, 3));
    printf("%g %g\n", log10(100), exp(0) + sin(0) + cos(0) - 1);
    return 0;
}
