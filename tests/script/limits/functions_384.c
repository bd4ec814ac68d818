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
#include "inc/doubling.h"
#define FN(n) int n(void) { return 0; }
X256(FN, f) X64(FN, g) X32(FN, h) X16(FN, i) X8(FN, j) X4(FN, k) X2(FN, l) FN(m)
int main(void) { return f00000000(); }
