/* The application: its folders with their trailing separator, a new temporary file,
   no main window without a desktop, and user tools not run from here. */
#include <stdio.h>
#include <string.h>
#include <editor/app.h>
// out: version 1 window 0
// out: home 1 / 0 0 [x]
// out: program 1 /
// out: temp 1 1 removed 0
// out: tool 0 0
int main(void)
{
    char dir[512], temp[260];
    FILE *f;

    printf("version %d window %d\n", Zol_GetVersion() > 0, Zol_GetMainWndHandle() != 0);
    strcpy(dir, "x");
    printf("home %d %c", Zol_GetTextEditorDir(dir, sizeof dir), dir[strlen(dir) - 1]);
    strcpy(dir, "x");
    printf(" %d %d [%s]\n", Zol_GetTextEditorDir(dir, 0), Zol_GetTextEditorDir(0, 10), dir);
    printf("program %d %c\n", Zol_GetModuleDir(dir, sizeof dir), dir[strlen(dir) - 1]);

    f = 0;
    printf("temp %d", Zol_GetTempFileName(temp));
    f = fopen(temp, "r");
    printf(" %d", f != 0);
    if (f) fclose(f);
    printf(" removed %d\n", remove(temp));

    Zol_StatusBarMsg("a message for the status bar");
    Zol_StatusBarMsg(0);
    Zol_CheckFileTime();
    printf("tool %d %d\n", Zol_ExecuteTool("true", "now", 0, "."), Zol_ExecuteTool(0, "now", 0, "."));
    return 0;
}
