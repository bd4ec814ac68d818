/* The Find dialog's text buffer holds 256 characters; a smaller array is refused even
   when the dialog would be cancelled. */
#include <editor/dlg.h>
// error: dialog_buffer.c Line 9: Illegal use of pointer
int main(void)
{
    char text[16];
    BOOL a = 0, b = 0, c = 0, d = 1;
    return Zol_FindDlg(text, &a, &b, &c, &d);
}
