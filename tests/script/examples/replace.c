// doc: one.c
// | int count = 0;
// | count++; /* counts */
// doc: two.h
// | extern int count;
// doc: three.txt
// | nothing to change here
// doc-after: one.c
// | int total = 0;
// | total++; /* totals */
// doc-after: two.h
// | extern int total;
// args: count total
// out: one.c: 3
// out: two.h: 1
// out: 2 files changed
/* replace: replaces every OLD by NEW, matching case, in every open document, and saves
   each document it changed. */
#include <windows.h>
#include <stdio.h>
#include <editor/doc.h>

/* The number of replacements made. */
int ReplaceAll(HDOC hDoc, const char *szOld, const char *szNew)
{
   int nCol = 1, nLine = 1, nCount = 0;

   while (Zol_Replace(hDoc, szOld, szNew, nCol, nLine, FALSE, TRUE, FALSE, TRUE) == 0) {
      nCount++;
      /* On after the new text, which is left selected; an empty one leaves the
         cursor where the old text was. */
      if (!Zol_GetSelEndPos(hDoc, &nCol, &nLine))
         Zol_GetCursorPos(hDoc, &nCol, &nLine);
   }
   return nCount;
}

int main(int argc, char *argv[])
{
   HDOC hDoc;
   int nCount, nFiles = 0;
   char szName[MAX_PATH];

   if (argc != 3) {
      printf("usage: %s OLD NEW\n", argv[0]);
      return 2;
   }
   for (hDoc = Zol_GetFirstDocument(); hDoc; hDoc = Zol_GetNextDocument(hDoc)) {
      nCount = ReplaceAll(hDoc, argv[1], argv[2]);
      if (nCount > 0 && Zol_SaveFile(hDoc, 0)) {
         Zol_GetDocumentName(hDoc, szName, sizeof szName);
         printf("%s: %d\n", szName, nCount);
         nFiles++;
      }
   }
   printf("%d files changed\n", nFiles);
   return 0;
}
