/********************************************************************
                         wordwrap

   Description: Word wraps active document
   Syntax:      wordwrap

********************************************************************/

/* Reflows the paragraph at the cursor, or every paragraph of the selected lines, so
   that no line runs past the word-wrap column (Options, or Zol_SetWordWrapCol). A
   paragraph is a run of lines that are not blank. Its first line keeps its indent;
   the lines after it take the indent of its second line. Words are joined by one
   blank, and a word wider than the column stands on a line of its own. */

#include <windows.h>
#include <stdlib.h>
#include <string.h>
#include <editor/doc.h>
#include <editor/macros.h>
#include <editor/options.h>

#define LINE_SIZE 3201   /* Zol_GetMaxLineLen() characters and the terminating zero */

/* Text that grows as it is written. */
typedef struct {
   char *text;
   int length, size;
} TEXT;

char szLine[LINE_SIZE];
char szFirstIndent[LINE_SIZE];
char szNextIndent[LINE_SIZE];

int ScriptMain(HDOC hDoc);

int main(void)
{
   HDOC hDoc = Zol_GetActiveDocument();

   if (!hDoc) {
      MsgBox("Cannot get handle of the active document!", MB_OK);
      return 1;
   }
   if (Zol_IsReadOnly(hDoc)) {
      MsgBox("Document is read only!", MB_OK);
      return 1;
   }
   return ScriptMain(hDoc);
}

void Append(TEXT *t, const char *s, int n)
{
   if (t->length + n + 1 > t->size) {
      t->size = 2 * (t->length + n + 1);
      t->text = realloc(t->text, t->size);
   }
   memcpy(t->text + t->length, s, n);
   t->length += n;
   t->text[t->length] = '\0';
}

BOOL IsBlank(char c)
{
   return c == ' ' || c == '\t';
}

BOOL IsBlankLine(HDOC hDoc, int nLine)
{
   char *p;

   Zol_GetLine(hDoc, nLine, szLine, LINE_SIZE);
   for (p = szLine; IsBlank(*p); p++)
      ;
   return *p == '\0';
}

/* Copies the blanks and tabs that begin line nLine into szIndent. */
void GetIndent(HDOC hDoc, int nLine, char *szIndent)
{
   int i;

   Zol_GetLine(hDoc, nLine, szLine, LINE_SIZE);
   for (i = 0; IsBlank(szLine[i]); i++)
      szIndent[i] = szLine[i];
   szIndent[i] = '\0';
}

/* The screen width of an indent: a tab runs to the next tab stop. */
int IndentWidth(const char *szIndent)
{
   int nTab = Zol_GetTabSize(), nCol = 0;

   for (; *szIndent; szIndent++)
      nCol = *szIndent == '\t' ? (nCol / nTab + 1) * nTab : nCol + 1;
   return nCol;
}

/* Appends the words of lines nFirst..nLast to pOut, wrapped at nWidth columns. */
void WrapParagraph(HDOC hDoc, int nFirst, int nLast, int nWidth, TEXT *pOut)
{
   int nLine, nCol = 0, nWords = 0, nLen;
   char *p;

   GetIndent(hDoc, nFirst, szFirstIndent);
   GetIndent(hDoc, nFirst < nLast ? nFirst + 1 : nFirst, szNextIndent);
   for (nLine = nFirst; nLine <= nLast; nLine++) {
      Zol_GetLine(hDoc, nLine, szLine, LINE_SIZE);
      for (p = szLine; *p; p += nLen) {
         while (IsBlank(*p))
            p++;
         for (nLen = 0; p[nLen] && !IsBlank(p[nLen]); nLen++)
            ;
         if (nLen == 0)
            break;
         if (nWords == 0) {
            Append(pOut, szFirstIndent, strlen(szFirstIndent));
            nCol = IndentWidth(szFirstIndent);
         } else if (nCol + 1 + nLen > nWidth) {
            Append(pOut, "\r\n", 2);
            Append(pOut, szNextIndent, strlen(szNextIndent));
            nCol = IndentWidth(szNextIndent);
         } else {
            Append(pOut, " ", 1);
            nCol++;
         }
         Append(pOut, p, nLen);
         nCol += nLen;
         nWords++;
      }
   }
}

/* Wraps every paragraph of lines nFirst..nLast; blank lines between them stay as
   they are. */
void WrapLines(HDOC hDoc, int nFirst, int nLast, TEXT *pOut)
{
   int nWidth = Zol_GetWordWrapCol(), nLine = nFirst, nEnd;

   while (nLine <= nLast) {
      if (nLine > nFirst)
         Append(pOut, "\r\n", 2);
      if (IsBlankLine(hDoc, nLine)) {
         Append(pOut, szLine, strlen(szLine));
         nLine++;
         continue;
      }
      for (nEnd = nLine; nEnd < nLast && !IsBlankLine(hDoc, nEnd + 1); nEnd++)
         ;
      WrapParagraph(hDoc, nLine, nEnd, nWidth, pOut);
      nLine = nEnd + 1;
   }
}

/* Replaces lines nFirst..nLast by szText: one deletion and one insertion, so two
   steps of Undo take it back. Should the new text not fit the editor's lines, the
   deletion is undone at once. */
BOOL ReplaceLines(HDOC hDoc, int nFirst, int nLast, const char *szText)
{
   int nSelMode = Zol_GetSelMode(hDoc);
   BOOL bDone;

   /* A column selection would take a block out of the lines, not the lines. */
   Zol_SetSelMode(hDoc, 1);
   Zol_SetCursorPos(hDoc, 1, nFirst, FALSE);
   Zol_SetCursorPos(hDoc, Zol_GetLineLen(hDoc, nLast, FALSE) + 1, nLast, TRUE);
   VM_DeleteBlock(hDoc);
   bDone = Zol_InsertText(hDoc, szText);
   if (!bDone)
      VM_Undo(hDoc);
   Zol_SetSelMode(hDoc, nSelMode);
   return bDone;
}

/* The lines to wrap: those of the selection (without the line it ends at the start
   of), else the paragraph at the cursor. FALSE when the cursor is on a blank line. */
BOOL GetLines(HDOC hDoc, int *pFirst, int *pLast)
{
   int nCol, nLines = Zol_GetNumberOfLines(hDoc);

   if (Zol_IsSelExist(hDoc)) {
      Zol_GetSelBeginPos(hDoc, &nCol, pFirst);
      Zol_GetSelEndPos(hDoc, &nCol, pLast);
      if (nCol == 1 && *pLast > *pFirst && Zol_GetSelType(hDoc) == 1)
         (*pLast)--;
      return TRUE;
   }
   Zol_GetCursorPos(hDoc, &nCol, pFirst);
   if (IsBlankLine(hDoc, *pFirst))
      return FALSE;
   while (*pFirst > 1 && !IsBlankLine(hDoc, *pFirst - 1))
      (*pFirst)--;
   Zol_GetCursorPos(hDoc, &nCol, pLast);
   while (*pLast < nLines && !IsBlankLine(hDoc, *pLast + 1))
      (*pLast)++;
   return TRUE;
}

int ScriptMain(HDOC hDoc)
{
   int nFirst, nLast, nResult = 0;
   TEXT out;
   char *szOld;

   if (!GetLines(hDoc, &nFirst, &nLast))
      return 0;
   out.text = NULL;
   out.length = out.size = 0;
   Append(&out, "", 0);
   WrapLines(hDoc, nFirst, nLast, &out);
   szOld = Zol_GetText(hDoc, 1, nFirst, Zol_GetLineLen(hDoc, nLast, FALSE) + 1, nLast);
   /* Do not update window after each editor command */
   Zol_LockUpdate(hDoc);
   if (strcmp(szOld, out.text) != 0 && !ReplaceLines(hDoc, nFirst, nLast, out.text)) {
      MsgBox("The wrapped lines would be too long for the editor.", MB_OK);
      nResult = 1;
   }
   /* Update window */
   Zol_UnlockUpdate(hDoc);
   Zol_MemFree(szOld);
   free(out.text);
   return nResult;
}
