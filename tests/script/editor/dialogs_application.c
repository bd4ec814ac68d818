/* Without windows every dialog is cancelled: each answers 0 and leaves the script's
   buffers and flags as they were. The application's folders end in a separator; there
   is no main window; a new temporary file is there to remove; a tool runs. */
#include <stdio.h>
#include <string.h>
#include <editor/dlg.h>
#include <editor/app.h>
// out: dialogs 0 0 0 0 0 0 0 0 0 0 [abc] [keep] 1 0 5 3 [one]
// out: home 1 / program 1 / window 0 temp 1 removed 0 tool 1
int main(void)
{
    char text[256], other[256], path[32], items[16], temp[260], folder[512];
    BOOL whole = TRUE, match = FALSE, regex = FALSE, forward = TRUE, within = FALSE;
    short format = 3;
    int value = 5, home, program;

    strcpy(text, "abc");
    strcpy(other, "b");
    strcpy(path, "keep");
    memcpy(items, "one\0two\0", 9);
    printf("dialogs %d %d %d %d %d", Zol_FindDlg(text, &whole, &match, &regex, &forward),
           Zol_ReplaceDlg(text, other, &whole, &match, &regex, &forward, &within),
           Zol_OpenFileDlg(path, sizeof path, "*.c", "Open"), Zol_SaveFileDlg(path, sizeof path, &format, "Save"),
           Zol_BrowseForFileDlg(path, sizeof path, "*.c", "Browse", ".", 0, Zol_GetMainWndHandle()));
    printf(" %d %d %d %d %d", Zol_BrowseForDirDlg(path, -1, "Folder"), Zol_GetStringDlg("T", "P", path, sizeof path),
           Zol_GetIntDlg("T", "P", &value, 1, 10), Zol_ListBoxDlg("Pick", items),
           Zol_ReadMeFileDlg("Read me", "no-such-file", 40, 10));
    printf(" [%s] [%s] %d %d %d %d [%s]\n", text, path, whole, match, value, format, items);

    home = Zol_GetTextEditorDir(folder, sizeof folder);
    printf("home %d %c", home, folder[strlen(folder) - 1]);
    program = Zol_GetModuleDir(folder, sizeof folder);
    printf(" program %d %c window %d", program, folder[strlen(folder) - 1], Zol_GetMainWndHandle() != 0);
    printf(" temp %d", Zol_GetTempFileName(temp));
    printf(" removed %d tool %d\n", remove(temp), Zol_ExecuteTool("true", "now", 0, "."));
    return 0;
}
