/* A buffer already given back to the heap is no buffer. */
#include <stdlib.h>
#include <editor/doc.h>
// doc: lines.txt
// | text
// error: freed_buffer.c Line 11: Not an address
int main(void)
{
    char *buf = malloc(16);
    free(buf);
    return Zol_GetLine(Zol_GetActiveDocument(), 1, buf, 16);
}
