/* 2048 distinct identifiers: main, S and 2046 member names. */
// exit: 0
#define X2(m, p) m(p##0) m(p##1)
#define X4(m, p) X2(m, p##0) X2(m, p##1)
#define X8(m, p) X4(m, p##0) X4(m, p##1)
#define X16(m, p) X8(m, p##0) X8(m, p##1)
#define X32(m, p) X16(m, p##0) X16(m, p##1)
#define X64(m, p) X32(m, p##0) X32(m, p##1)
#define X128(m, p) X64(m, p##0) X64(m, p##1)
#define X256(m, p) X128(m, p##0) X128(m, p##1)
#define X512(m, p) X256(m, p##0) X256(m, p##1)
#define X1024(m, p) X512(m, p##0) X512(m, p##1)
#define MEM(n) int n;
struct S {
    X1024(MEM, a) X512(MEM, b) X256(MEM, c) X128(MEM, d) X64(MEM, e)
    X32(MEM, f) X16(MEM, g) X8(MEM, h) X4(MEM, i) X2(MEM, j)
};
int main(void) { return 0; }
