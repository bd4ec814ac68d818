/* Every pointer is checked before the function runs: a place too small for the line
   number stops the call before the column is written. */
#include <stdio.h>
#include <editor/doc.h>
// doc: lines.txt
// | text
// error: short_out_value.c Line 12: Illegal use of pointer
int main(void)
{
    int col = 0;
    short line = 0;
    Zol_GetCursorPos(Zol_GetActiveDocument(), &col, (int *)&line);
    return 0;
}
