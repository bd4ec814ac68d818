/* Zol_MemFree answers a pointer that no malloc gave as free does. */
#include <editor/doc.h>
// error: memfree_foreign.c Line 8: Illegal use of pointer
int main(void)
{
    char local[4];
    Zol_MemFree(0);
    Zol_MemFree(local);
    return 0;
}
