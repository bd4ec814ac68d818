// doc: ragged.c
// | int main(void)   
// | {
// | 	int n;	/* a tab inside */  
// |   
// | 	return n;
// | }
// doc-after: ragged.c
// | int main(void)
// | {
// |     int n;  /* a tab inside */
// |
// |     return n;
// | }
// args: 4
/* tidy: expands the tabs of every line of the active document into blanks, to the
   tab stops of the editor or of the number given, and removes the blanks at the ends
   of lines. A line that would grow too long for the editor is left as it is. */
#include <windows.h>
#include <stdlib.h>
#include <string.h>
#include <editor/doc.h>
#include <editor/options.h>

#define LINE_SIZE 3201   /* Zol_GetMaxLineLen() characters and the terminating zero */

char szLine[LINE_SIZE], szTidy[LINE_SIZE];

BOOL Tidy(const char *szIn, char *szOut, int nTab)
{
   int n = 0, nEnd;

   for (; *szIn; szIn++) {
      nEnd = *szIn == '\t' ? (n / nTab + 1) * nTab : n + 1;
      if (nEnd > LINE_SIZE - 1)
         return FALSE;
      while (n < nEnd)
         szOut[n++] = *szIn == '\t' ? ' ' : *szIn;
   }
   while (n > 0 && szOut[n - 1] == ' ')
      n--;
   szOut[n] = '\0';
   return TRUE;
}

int main(int argc, char *argv[])
{
   HDOC hDoc = Zol_GetActiveDocument();
   int nLine, nTab = argc > 1 ? atoi(argv[1]) : Zol_GetTabSize();

   if (!hDoc) {
      MsgBox("Cannot get handle of the active document!", MB_OK);
      return 1;
   }
   Zol_LockUpdate(hDoc);
   for (nLine = 1; nLine <= Zol_GetNumberOfLines(hDoc); nLine++) {
      Zol_GetLine(hDoc, nLine, szLine, LINE_SIZE);
      if (Tidy(szLine, szTidy, nTab) && strcmp(szLine, szTidy) != 0)
         Zol_SetLine(hDoc, nLine, szTidy);
   }
   Zol_UnlockUpdate(hDoc);
   return 0;
}
