/* The 2049th distinct identifier (main, after S, 2046 members and k) fills the symbol table. */
// error: symbols_2049.c Line 9: Limitation: symbol table full
#include "inc/doubling.h"
#define MEM(n) int n;
struct S {
    X1024(MEM, a) X512(MEM, b) X256(MEM, c) X128(MEM, d) X64(MEM, e)
    X32(MEM, f) X16(MEM, g) X8(MEM, h) X4(MEM, i) X2(MEM, j) int k;
};
int main(void) { return 0; }
