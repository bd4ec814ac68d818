/* The starter script wordwrap at column 30: the paragraph at the cursor keeps its
   first line's indent and gives the others that of its second line (a tab counts to
   its stop); a selection wraps each of its paragraphs and keeps the blank lines
   between them, a word wider than the column standing alone; two steps of Undo take
   a wrap back. */
#define main StarterMain
#include "../../../data/script/wordwrap.c"
#undef main
#include <stdio.h>
// doc: cursor.txt
// | Title line
// |
// | 	A tabbed first line, then lines that hang
// |     below it by four blanks and run on well past the column.
// |
// | Left alone.
// doc-after: cursor.txt
// | Title line
// |
// | 	A tabbed first line,
// |     then lines that hang below
// |     it by four blanks and run
// |     on well past the column.
// |
// | Left alone.
// doc: selection.txt
// | one two
// | three
// |
// |   Indented words: supercalifragilisticexpialidocious
// |   follows.
// | Not selected: the selection ends at the start of this line.
// doc-after: selection.txt
// | one two three
// |
// |   Indented words:
// |   supercalifragilisticexpialidocious
// |   follows.
// | Not selected: the selection ends at the start of this line.
// doc: undo.txt
// | Words that will wrap and come back again as they were.
// doc-after: undo.txt
// | Words that will wrap and come back again as they were.
// out: cursor 0 selection 0 undo 0 2 1
// out: blank line 0 0
int main(void)
{
   HDOC hCursor = Zol_GetFirstDocument(), hSelection = Zol_GetNextDocument(hCursor), hUndo = Zol_GetLastDocument();
   int nLines;

   Zol_SetWordWrapCol(30);
   Zol_SetActiveDocument(hCursor);
   Zol_SetCursorPos(hCursor, 9, 4, FALSE);
   printf("cursor %d", StarterMain());

   Zol_SetActiveDocument(hSelection);
   Zol_SetCursorPos(hSelection, 3, 1, FALSE);
   Zol_SetCursorPos(hSelection, 1, 6, TRUE);
   printf(" selection %d", StarterMain());

   Zol_SetActiveDocument(hUndo);
   printf(" undo %d", StarterMain());
   printf(" %d", Zol_GetNumberOfLines(hUndo));
   VM_Undo(hUndo);
   VM_Undo(hUndo);
   printf(" %d\n", Zol_GetNumberOfLines(hUndo));

   Zol_SetActiveDocument(hCursor);
   Zol_SetCursorPos(hCursor, 1, 2, FALSE);
   nLines = Zol_GetNumberOfLines(hCursor);
   printf("blank line %d %d\n", StarterMain(), Zol_GetNumberOfLines(hCursor) - nLines);
   return 0;
}
