/* A list of items must end with an empty item inside its array. */
#include <string.h>
#include <editor/dlg.h>
// error: string_list.c Line 9: Illegal use of pointer
int main(void)
{
    char items[8];
    memcpy(items, "one\0two", 8);
    return Zol_ListBoxDlg("Pick", items);
}
