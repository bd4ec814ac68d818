/* 2048 distinct identifiers: main, S and 2046 member names. */
// exit: 0
#include "inc/doubling.h"
#define MEM(n) int n;
struct S {
    X1024(MEM, a) X512(MEM, b) X256(MEM, c) X128(MEM, d) X64(MEM, e)
    X32(MEM, f) X16(MEM, g) X8(MEM, h) X4(MEM, i) X2(MEM, j)
};
int main(void) { return 0; }
