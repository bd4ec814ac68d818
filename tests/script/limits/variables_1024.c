/* 1024 live variables: 1024 globals (main takes no parameters). */
// exit: 4
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
#define VAR(n) int n;
X1024(VAR, v)
int main(void) { v0000000000 = 4; return v0000000000; }
