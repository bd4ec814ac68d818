/* The 385th function exhausts the function table. */
// error: functions_385.c Line 6: Limitation: function space exhausted
#include "inc/doubling.h"
#define FN(n) int n(void) { return 0; }
X256(FN, f) X64(FN, g) X32(FN, h) X16(FN, i) X8(FN, j) X4(FN, k) X2(FN, l) X2(FN, m)
int main(void) { return 0; }
