/* What the editor answers a script that passes no buffer, no text, a negative size or
   a handle that names nothing, kind by kind: the function's neutral answer, buffers and
   out-values left alone where the function writes nothing, and the text untouched. */
#include <stdio.h>
#include <string.h>
#include <editor/doc.h>
#include <editor/dlg.h>
#include <editor/app.h>
#include <editor/macros.h>
/* The commands' answers are checked: the macros' calls go to Zol_EdCmd, the same
   built-in as Zol_EditorCommand, which gives the executor's result. */
#define Zol_EditorCommand Zol_EdCmd
// doc: keep.txt
// | first
// | second
// out: null buffers 0 0 0 0 0 0 0 0
// out: null texts 0 0 0 0 -1 -1
// out: negative sizes 0 0 0 0 0 [kept]
// out: gone 0 -1 0 0 0 1,1 0 0,0 0 -1 0
// out: commands 0 0 0 0
// doc-after: keep.txt
// | first
// | second
int main(void)
{
    HDOC h = Zol_GetActiveDocument(), gone;
    char buf[16];
    int col = 7, line = 7;

    printf("null buffers %d %d %d %d %d %d %d %d\n", Zol_GetLine(h, 1, 0, 10), Zol_GetDocumentName(h, 0, 10),
           Zol_GetFileName(h, 0, 10), Zol_GetStringDlg("t", "p", 0, 10), Zol_FindDlg(0, &col, &col, &col, &col),
           Zol_ListBoxDlg("t", 0), Zol_GetTempFileName(0), Zol_GetModuleDir(0, 10));
    printf("null texts %d %d %d %d %d %d\n", Zol_InsertText(h, 0), Zol_SetLine(h, 1, 0),
           Zol_GetText(h, 0, 1, 1, 1) != 0, Zol_OpenDocument(0) != 0, Zol_Find(h, 0, 1, 1, 0, 0, 0, 1),
           Zol_FindInString("text", 0, 0, 0, 0, &col, &line));
    Zol_SetFileName(h, 0);
    Zol_StatusBarMsg(0);

    strcpy(buf, "kept");
    printf("negative sizes %d %d %d %d %d [%s]\n", Zol_GetLine(h, 1, buf, -5), Zol_GetDocumentName(h, buf, -1),
           Zol_GetFileExtension(h, buf, -100), Zol_GetTextEditorDir(buf, -1), Zol_GetStringDlg("t", "p", buf, -2),
           buf);

    gone = Zol_NewDocument();
    Zol_DestroyDocument(gone);
    Zol_GetCursorPos(gone, &col, &line);
    printf("gone %d %d %d %d %d %d,%d", Zol_GetLine(gone, 1, buf, sizeof buf), Zol_GetLineLen(gone, 1, 0),
           Zol_SetLine(gone, 1, "x"), Zol_GetText(gone, 1, 1, 1, 1) != 0, Zol_GetSelection(gone) != 0, col, line);
    printf(" %d", Zol_GetSelBeginPos(gone, &col, &line));
    printf(" %d,%d %d %d %d\n", col, line, Zol_IsModified(gone), Zol_Find(gone, "first", 1, 1, 0, 0, 0, 1),
           Zol_ExecuteMacro(gone, "Macro1"));
    printf("commands %d %d %d %d\n", VM_InsertChar(gone, 'x'), VM_InsertChar(0, 'x'),
           Zol_EdCmd(h, 65536, 0), Zol_EdCmd(h, 1500, 0));
    return 0;
}
