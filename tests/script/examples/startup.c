// doc: notes.md
// | Notes
// doc: main.c
// | int main(void);
/* Options for every session, whatever zol.ini says: tabs of four columns typed as
   blanks, no trailing blanks kept; and soft word wrap for every text or Markdown
   file opened from the command line. */
#include <windows.h>
#include <string.h>
#include <editor/doc.h>
#include <editor/options.h>

int main(void)
{
   HDOC hDoc;
   char szExt[16];

   Zol_SetTabSize(4);
   Zol_SetUseTabChar(FALSE);
   Zol_SetKeepTrailingBlanks(FALSE);
   for (hDoc = Zol_GetFirstDocument(); hDoc; hDoc = Zol_GetNextDocument(hDoc))
      if (Zol_GetFileExtension(hDoc, szExt, sizeof szExt) == 1
          && (stricmp(szExt, "txt") == 0 || stricmp(szExt, "md") == 0))
         Zol_SetDocWordWrap(hDoc, TRUE);
   return 0;
}
