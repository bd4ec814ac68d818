/* CallDLLFunc on the test library: integers as sign-extended words, twelve of them at
   most, strings and int pointers as the script's own bytes, a 32-bit result. A missing
   library or function answers 0; a bare name is also looked for in the home's PlugIns. */
#include <windows.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <dir.h>
#include <editor/app.h>
// out: add 6 3 weigh 650 widen -1 1
// out: length 5 -1 shout 3 [ABC] store 1 99
// out: result 7
// out: missing 0 0 0
// out: from the home 42
char lib[512];

/* Copies the test library into the home's PlugIns, where a bare name finds it. */
int copyToPlugIns(void)
{
    char dest[600], block[4096];
    FILE *in, *out;
    size_t n;
    GetWindowsDirectory(dest, sizeof dest);
    strcat(dest, "PlugIns");
    mkdir(dest);
    strcat(dest, "/vekc_calltest.so");
    in = fopen(lib, "rb");
    out = fopen(dest, "wb");
    if (!in || !out) return 0;
    while ((n = fread(block, 1, sizeof block, in)) > 0)
        fwrite(block, 1, n, out);
    fclose(in);
    fclose(out);
    return 1;
}

int main(void)
{
    char text[8] = "abc";
    int box = 0;
    sprintf(lib, "%s/calltest.so", getenv("ZOLDER_TEST_LIBS"));
    printf("add %ld %ld weigh %ld widen %ld %ld\n", CallDLLFunc(lib, "add3", 1, 2, 3),
           Zol_CallDLLFunc(lib, "add3", 1, 1, 1), CallDLLFunc(lib, "weigh12", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12),
           CallDLLFunc(lib, "widen", -5), CallDLLFunc(lib, "widen", 5));
    printf("length %ld %ld shout %ld [%s] store %ld %d\n", CallDLLFunc(lib, "length", "hello"),
           CallDLLFunc(lib, "length", NULL), CallDLLFunc(lib, "shout", text), text,
           CallDLLFunc(lib, "store", &box, 99), box);
    printf("result %ld\n", CallDLLFunc(lib, "wide_result"));
    printf("missing %ld %ld %ld\n", CallDLLFunc("vekc-no-such-library.so", "add3", 1, 2, 3),
           CallDLLFunc(lib, "no_such_function", 1), CallDLLFunc("", "add3", 1, 2, 3));
    if (copyToPlugIns())
        printf("from the home %ld\n", CallDLLFunc("vekc_calltest.so", "add3", 40, 1, 1));
    return 0;
}
