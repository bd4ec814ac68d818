/* An address made up from a number is no place for the editor to write. */
#include <editor/doc.h>
// doc: lines.txt
// | text
// error: wild_pointer.c Line 8: Not an address
int main(void)
{
    Zol_GetCursorPos(Zol_GetActiveDocument(), (int *)0x12345, 0);
    return 0;
}
