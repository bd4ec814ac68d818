/* Documents by handle: walking the list, making, activating, closing and destroying
   them, their names and flags. The handle of a document that is gone, one made
   up and a window's handle name no document: every function answers them as it
   answers no document, and a new document never gets an old handle. */
#include <stdio.h>
#include <string.h>
#include <editor/doc.h>
#include <editor/macros.h>
/* The commands' answers are checked: the macros' calls go to Zol_EdCmd, the same
   built-in as Zol_EditorCommand, which gives the executor's result. */
#define Zol_EditorCommand Zol_EdCmd
// doc: first.txt
// | one
// doc: second.c
// | two
// out: count 2 active-last 1 next 1 prev 1 ends 1 1
// out: name first.txt ext 1 c file 0 []
// out: new 1 count 3 active 1 untitled -1 modified 1 closes 0
// stderr: zolder: The text in the noname01.txt file has changed. Do you want to save changes?
// out: activated 1
// out: gone 0 0 0 -1 0 reused 0
// out: closed 1 0 count 2
// out: made up 0 0 0 -1 null close 1
// out: windows 0 0 1 as document 0
// out: read-only 0 0 0 1 renamed renamed.txt
// doc-after: renamed.txt
// | one
// doc-after: second.c
// | two
int main(void)
{
    HDOC active = Zol_GetActiveDocument();
    HDOC first = Zol_GetFirstDocument(), last = Zol_GetLastDocument();
    HDOC made, gone;
    char name[64];

    printf("count %d active-last %d next %d prev %d ends %d %d\n", Zol_GetNumberOfDocuments(), active == last,
           Zol_GetNextDocument(first) == last, Zol_GetPrevDocument(last) == first, Zol_GetNextDocument(last) == 0,
           Zol_GetPrevDocument(first) == 0);
    Zol_GetDocumentName(first, name, sizeof name);
    printf("name %s", name);
    printf(" ext %d", Zol_GetFileExtension(active, name, sizeof name));
    printf(" %s", name);
    printf(" file %d", Zol_GetFileName(first, name, 1));
    printf(" [%s]\n", name);

    made = Zol_NewDocument();
    printf("new %d count %d active %d untitled %d", Zol_IsDocument(made), Zol_GetNumberOfDocuments(),
           Zol_GetActiveDocument() == made, Zol_GetFileName(made, name, sizeof name));
    Zol_InsertText(made, "scratch");
    printf(" modified %d closes %d\n", Zol_IsModified(made), Zol_CloseDocument(made));
    Zol_SetActiveDocument(first);
    printf("activated %d\n", Zol_GetActiveDocument() == first);

    Zol_DestroyDocument(made);
    gone = made;
    made = Zol_NewDocument();
    printf("gone %d %d %d %d %d reused %d\n", Zol_IsDocument(gone), Zol_GetNumberOfLines(gone),
           Zol_InsertText(gone, "x"), Zol_GetLineLen(gone, 1, 0), Zol_GetNextDocument(gone) != 0, made == gone);
    printf("closed %d %d count %d\n", Zol_CloseDocument(made), Zol_IsDocument(made), Zol_GetNumberOfDocuments());

    printf("made up %d %d %d %d null close %d\n", Zol_IsDocument((HDOC)12345), Zol_GetNumberOfLines((HDOC)7),
           Zol_GetTextFileFormat((HDOC)-1), Zol_GetLineLen((HDOC)3, 1, 0), Zol_CloseDocument(0));
    printf("windows %d %d %d as document %d\n", Zol_GetDocWndHandle(first) != 0,
           Zol_GetDocWndHandle(first) != Zol_GetDocWndHandle(active), Zol_GetDocWndHandle(0) == 0,
           Zol_GetNumberOfLines((HDOC)Zol_GetDocWndHandle(first)));

    Zol_SetReadOnly(first, TRUE);
    printf("read-only %d %d %d %d", Zol_InsertText(first, "x"), Zol_SetLine(first, 1, "x"),
           VM_DeleteLine(first), Zol_IsReadOnly(first));
    Zol_SetReadOnly(first, FALSE);
    Zol_SetFileName(first, "renamed.txt");
    Zol_GetDocumentName(first, name, sizeof name);
    printf(" renamed %s\n", name);
    return 0;
}
