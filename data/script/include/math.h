/* Mathematics. atan2(y, x) answers what atan(y) answers. */
#ifndef __MATH_H
#define __MATH_H
#define HUGE_VAL __HugeVal()
#define M_PI 3.14159265358979323846
#define M_E 2.71828182845904523536
/* Built-in functions: generated from script/builtins.def */
double __HugeVal(void);
double frexp(double x, int *exponent);
double ldexp(double x, int exponent);
double modf(double x, double *whole);
double fmod(double x, double y);
double acos(double x);
double asin(double x);
double atan(double x);
double atan2(double y, double x);
double ceil(double x);
double cos(double x);
double cosh(double x);
double exp(double x);
double fabs(double x);
double floor(double x);
double sin(double x);
double sinh(double x);
double sqrt(double x);
double tan(double x);
double tanh(double x);
double log(double x);
double log10(double x);
double pow(double x, double y);
/* End of built-in functions */
#endif
