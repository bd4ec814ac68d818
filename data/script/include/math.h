/* Mathematics. The functions are built in; atan2(y, x) answers what atan(y) answers. */
#ifndef __MATH_H
#define __MATH_H
#define HUGE_VAL __HugeVal()
#define M_PI 3.14159265358979323846
#define M_E 2.71828182845904523536
#endif
