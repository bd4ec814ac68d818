/* 384 functions: 383 and main, after headers declaring built-ins,
   which take no room in the function table. */
#include <stdio.h>
#include <string.h>
#include <math.h>
#include <time.h>
#include <windows.h>
#include <editor/doc.h>
#include <editor/options.h>
#include <editor/dlg.h>
#include <editor/app.h>
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
#define FN(n) int n(void) { return 0; }
X256(FN, f) X64(FN, g) X32(FN, h) X16(FN, i) X8(FN, j) X4(FN, k) X2(FN, l) FN(m)
int main(void) { return f00000000(); }
