/* CallDLLFunc on the test library: integers as sign-extended words, twelve at most,
   strings and int pointers as the script's own bytes, a 32-bit result. A missing
   library or function answers 0; a bare name is also looked for in the home's PlugIns. */
#include <windows.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <editor/app.h>
// out: add 6 3 weigh 650 widen -1 1 result 7
// out: length 5 -1 fill xxc store 1 99 missing 0 0 0 from the home 42
int main(void)
{
    char lib[512], home[300], copy[1200], text[8] = "abc";
    int box = 0;
    sprintf(lib, "%s/calltest.so", getenv("ZOLDER_TEST_LIBS"));
    printf("add %ld %ld weigh %ld widen %ld %ld result %ld\n", CallDLLFunc(lib, "add3", 1, 2, 3),
           Zol_CallDLLFunc(lib, "add3", 1, 1, 1), CallDLLFunc(lib, "weigh12", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12),
           CallDLLFunc(lib, "widen", -5), CallDLLFunc(lib, "widen", 5), CallDLLFunc(lib, "wide_result"));
    CallDLLFunc(lib, "fill", text, 'x', 2);
    printf("length %ld %ld fill %s store %ld %d", CallDLLFunc(lib, "length", "hello"), CallDLLFunc(lib, "length", NULL), text,
           CallDLLFunc(lib, "store", &box, 99), box);
    printf(" missing %ld %ld %ld", CallDLLFunc("vekc-no-such-library.so", "add3", 1, 2, 3),
           CallDLLFunc(lib, "no_such_function", 1), CallDLLFunc("", "add3", 1, 2, 3));
    GetWindowsDirectory(home, sizeof home);
    sprintf(copy, "mkdir -p '%sPlugIns' && cp '%s' '%sPlugIns/vekc_calltest.so'", home, lib, home);
    system(copy);
    printf(" from the home %ld\n", CallDLLFunc("vekc_calltest.so", "add3", 40, 1, 1));
    sprintf(copy, "%sPlugIns/vekc_calltest.so", home);
    remove(copy);
    return 0;
}
