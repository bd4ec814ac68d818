/********************************************************************
                         unhtml

   Description: Removes HTML tags from the active document
   Syntax:      unhtml

********************************************************************/

/* Turns HTML into plain text: in the selection, or in the whole document when
   nothing is selected, tags and comments are removed, the contents of script and
   style elements with them, and the common character references are decoded: &amp;
   &lt; &gt; &quot; &apos; &nbsp; and numeric ones (&#233; &#xE9;) for characters the
   Windows-1252 code page has. Anything else is left as it stands: a "<" that opens
   no tag (as in "a < b"), markup that never ends, references to characters outside
   the code page. Line breaks inside a removed tag go with it. */

#include <windows.h>
#include <ctype.h>
#include <stdlib.h>
#include <string.h>
#include <editor/doc.h>
#include <editor/macros.h>

/* Text that grows as it is written. */
typedef struct {
   char *text;
   int length, size;
} TEXT;

/* The characters of Windows-1252 bytes 128 to 159, 0 where the byte has none. */
long lCodePage[32] = {
   0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
   0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178
};

/* The named references decoded, and their characters. */
char *szNames[] = { "&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&nbsp;" };
char szChars[] = { '&', '<', '>', '"', '\'', (char)160 };

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

BOOL IsLetter(char c)
{
   return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/* Past the ">" that ends the tag opened at p, quoted attribute values skipped;
   NULL when another "<" or the end of the text comes first: then p opens no tag. */
char *TagEnd(char *p)
{
   char cQuote = 0, cLast = 0;

   for (p++; *p; p++) {
      if (cQuote) {
         if (*p == cQuote)
            cQuote = 0;
      } else if (*p == '>') {
         return p + 1;
      } else if (*p == '<') {
         return NULL;
      } else if ((*p == '"' || *p == '\'') && cLast == '=') {
         cQuote = *p;
      }
      if (*p != ' ' && *p != '\t' && *p != '\r' && *p != '\n')
         cLast = *p;
   }
   return NULL;
}

/* The end of an element whose contents go with its tags, the element's start tag
   ending at pContents: past its end tag, or pContents when there is none. */
char *ElementEnd(char *pContents, const char *szName)
{
   int nLen = strlen(szName);
   char *p, *pEnd;

   for (p = pContents; *p; p++)
      if (p[0] == '<' && p[1] == '/' && strnicmp(p + 2, szName, nLen) == 0 && !IsLetter(p[2 + nLen])) {
         pEnd = TagEnd(p);
         return pEnd ? pEnd : pContents;
      }
   return pContents;
}

/* Past the markup that begins at p (a tag, a comment, a script or style element);
   NULL when p begins no markup. */
char *MarkupEnd(char *p)
{
   char *pEnd;

   if (strncmp(p, "<!--", 4) == 0) {
      pEnd = strstr(p + 4, "-->");
      return pEnd ? pEnd + 3 : NULL;
   }
   if (!IsLetter(p[1]) && !(p[1] == '/' && IsLetter(p[2])) && p[1] != '!' && p[1] != '?')
      return NULL;
   pEnd = TagEnd(p);
   if (pEnd && strnicmp(p + 1, "script", 6) == 0 && !IsLetter(p[7]))
      return ElementEnd(pEnd, "script");
   if (pEnd && strnicmp(p + 1, "style", 5) == 0 && !IsLetter(p[6]))
      return ElementEnd(pEnd, "style");
   return pEnd;
}

/* The Windows-1252 byte of a character, 0 when the code page lacks it. Numbers 128
   to 159 are taken as those bytes, as browsers take them. */
int CodePageByte(long lChar)
{
   int i;

   if (lChar == '\t' || lChar == '\n' || lChar == '\r')
      return (int)lChar;
   if ((lChar >= 32 && lChar < 127) || (lChar >= 160 && lChar <= 255))
      return (int)lChar;
   if (lChar >= 128 && lChar < 160)
      return lCodePage[lChar - 128] ? (int)lChar : 0;
   for (i = 0; lChar > 255 && i < 32; i++)
      if (lCodePage[i] == lChar)
         return 128 + i;
   return 0;
}

/* Decodes the reference at p into *pChar; its length, 0 when p begins none that can
   be decoded. */
int Reference(char *p, char *pChar)
{
   int i, nDigits, nBase = 10, nByte;
   long lChar = 0;
   char *q = p + 2;

   for (i = 0; i < 6; i++)
      if (strncmp(p, szNames[i], strlen(szNames[i])) == 0) {
         *pChar = szChars[i];
         return strlen(szNames[i]);
      }
   if (p[1] != '#')
      return 0;
   if (*q == 'x' || *q == 'X') {
      nBase = 16;
      q++;
   }
   for (nDigits = 0; nDigits < 8 && (nBase == 16 ? isxdigit(*q) : isdigit(*q)); nDigits++, q++)
      lChar = lChar * nBase + (isdigit(*q) ? *q - '0' : toupper(*q) - 'A' + 10);
   nByte = CodePageByte(lChar);
   if (nDigits == 0 || *q != ';' || nByte == 0)
      return 0;
   *pChar = (char)nByte;
   return q + 1 - p;
}

/* Appends szHtml to pOut as plain text. */
void Unhtml(char *szHtml, TEXT *pOut)
{
   char *p = szHtml, *pEnd, c;
   int nLen;

   while (*p) {
      if (*p == '<' && (pEnd = MarkupEnd(p)) != NULL) {
         p = pEnd;
      } else if (*p == '&' && (nLen = Reference(p, &c)) != 0) {
         Append(pOut, &c, 1);
         p += nLen;
      } else {
         Append(pOut, p++, 1);
      }
   }
}

/* Replaces the text from (nCol1, nLine1) up to (nCol2, nLine2) by szText: one
   deletion and one insertion, so two steps of Undo take it back. Should the new
   text not fit the editor's lines, the deletion is undone at once. */
BOOL ReplaceRange(HDOC hDoc, int nCol1, int nLine1, int nCol2, int nLine2, const char *szText)
{
   int nSelMode = Zol_GetSelMode(hDoc);
   BOOL bDone = TRUE;

   /* A column selection would take a block out of the lines, not the text between. */
   Zol_SetSelMode(hDoc, 1);
   Zol_SetCursorPos(hDoc, nCol1, nLine1, FALSE);
   Zol_SetCursorPos(hDoc, nCol2, nLine2, TRUE);
   VM_DeleteBlock(hDoc);
   if (*szText)
      bDone = Zol_InsertText(hDoc, szText);
   if (!bDone)
      VM_Undo(hDoc);
   Zol_SetSelMode(hDoc, nSelMode);
   return bDone;
}

/* The text to work on: the selection (whole lines of a column selection), else the
   whole document. */
void GetRange(HDOC hDoc, int *pCol1, int *pLine1, int *pCol2, int *pLine2)
{
   if (Zol_IsSelExist(hDoc)) {
      Zol_GetSelBeginPos(hDoc, pCol1, pLine1);
      Zol_GetSelEndPos(hDoc, pCol2, pLine2);
      if (Zol_GetSelType(hDoc) == 2) {
         *pCol1 = 1;
         *pCol2 = Zol_GetLineLen(hDoc, *pLine2, FALSE) + 1;
      }
   } else {
      *pCol1 = *pLine1 = 1;
      *pLine2 = Zol_GetNumberOfLines(hDoc);
      *pCol2 = Zol_GetLineLen(hDoc, *pLine2, FALSE) + 1;
   }
}

int ScriptMain(HDOC hDoc)
{
   int nCol1, nLine1, nCol2, nLine2, nResult = 0;
   char *szHtml;
   TEXT out;

   GetRange(hDoc, &nCol1, &nLine1, &nCol2, &nLine2);
   szHtml = Zol_GetText(hDoc, nCol1, nLine1, nCol2, nLine2);
   out.text = NULL;
   out.length = out.size = 0;
   Append(&out, "", 0);
   Unhtml(szHtml, &out);
   /* Do not update window after each editor command */
   Zol_LockUpdate(hDoc);
   if (strcmp(szHtml, out.text) != 0 && !ReplaceRange(hDoc, nCol1, nLine1, nCol2, nLine2, out.text)) {
      MsgBox("The text without tags would make lines too long for the editor.", MB_OK);
      nResult = 1;
   }
   /* Update window */
   Zol_UnlockUpdate(hDoc);
   Zol_MemFree(szHtml);
   free(out.text);
   return nResult;
}
