/* Without windows every dialog is cancelled: each answers 0 and leaves the script's
   buffers and flags as they were, also for sizes too small to be shown at all. */
#include <stdio.h>
#include <string.h>
#include <editor/dlg.h>
#include <editor/app.h>
// out: find 0 [abc] 1 0 1 1
// out: replace 0 [a] [b] 0
// out: files 0 0 0 0 0 0 [keep] 3
// out: prompts 0 [keep] 0 5 0 [one]
// out: read-me 0 0 0
int main(void)
{
    char text[256], other[256], path[32], items[16];
    BOOL whole = TRUE, match = FALSE, regex = TRUE, forward = TRUE, within = FALSE;
    short format = 3;
    int value = 5;

    strcpy(text, "abc");
    printf("find %d [%s] %d %d %d %d\n", Zol_FindDlg(text, &whole, &match, &regex, &forward), text, whole, match,
           regex, forward);
    strcpy(text, "a");
    strcpy(other, "b");
    printf("replace %d [%s] [%s] %d\n", Zol_ReplaceDlg(text, other, &whole, &match, &regex, &forward, &within),
           text, other, within);

    strcpy(path, "keep");
    printf("files %d %d %d %d %d %d [%s] %d\n", Zol_OpenFileDlg(path, sizeof path, "*.c", "Open"),
           Zol_OpenFileDlg(path, 2, "*.c", "Open"), Zol_SaveFileDlg(path, sizeof path, &format, "Save"),
           Zol_BrowseForFileDlg(path, sizeof path, "*.c", "Browse", ".", 0, Zol_GetMainWndHandle()),
           Zol_BrowseForDirDlg(path, sizeof path, "Folder"), Zol_BrowseForDirDlg(path, -1, "Folder"), path, format);

    memcpy(items, "one\0two\0", 9);
    printf("prompts %d [%s] %d %d", Zol_GetStringDlg("Title", "Prompt", path, sizeof path), path,
           Zol_GetIntDlg("Title", "Number", &value, 1, 10), value);
    printf(" %d [%s]\n", Zol_ListBoxDlg("Pick", items), items);
    printf("read-me %d %d %d\n", Zol_ReadMeStringDlg("Read me", "text", 40, 10),
           Zol_ReadMeFileDlg("Read me", "no-such-file", 40, 10), Zol_ReadMeStringDlg("Read me", 0, 40, 10));
    return 0;
}
