/* A size larger than the script's array is refused before anything is copied. */
#include <editor/doc.h>
// doc: lines.txt
// | a line longer than the buffer
// error: short_buffer.c Line 9: Illegal use of pointer
int main(void)
{
    char buf[8];
    return Zol_GetLine(Zol_GetActiveDocument(), 1, buf, 100);
}
