/********************************************************************
                         autoduck

   Description: Creates a Autoduck compilant comment for the currently selected C/C++ function
   Syntax:      autoduck

********************************************************************/

/* Writes a documentation comment above the C, C++ or Java function whose header
   begins on the cursor's line. For example the header

      static int add(int a,
                     const char *text)

   gets, between a "/*" line and a closing line, indented like the function:

       * @func int | add |
       *
       * @parm int | a |
       * @parm const char * | text |
       *
       * @rdesc

   and the cursor goes to the end of the @func line, ready for the description. The
   header may run over several lines up to its ")". A function without parameters,
   or with just void, gets no @parm line; one returning void, and a constructor, no
   @rdesc. */

#include <windows.h>
#include <ctype.h>
#include <stdlib.h>
#include <string.h>
#include <editor/doc.h>

#define LINE_SIZE 3201   /* Zol_GetMaxLineLen() characters and the terminating zero */
#define HEADER_LINES 30  /* how far down a header's ")" is looked for */
#define HEADER_SIZE 4096
#define WORD_SIZE 256    /* a name or a type */
#define MAX_PARAMS 64

/* Text that grows as it is written. */
typedef struct {
   char *text;
   int length, size;
} TEXT;

/* What precedes a return type without being part of it. */
char *szSpecifiers[] = {
   "static", "inline", "extern", "virtual", "explicit", "friend", "constexpr", "public",
   "protected", "private", "abstract", "final", "synchronized", "native", "strictfp"
};
/* Words before a "(" that make no function. */
char *szStatements[] = { "if", "while", "for", "switch", "return", "sizeof", "catch" };

char szLine[LINE_SIZE];
char szHeader[HEADER_SIZE];

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

void AppendString(TEXT *t, const char *s)
{
   Append(t, s, strlen(s));
}

BOOL IsIdentChar(char c)
{
   return isalnum(c) || c == '_';
}

/* Copies s[0..nLen) into szOut (WORD_SIZE) without the blanks at either end, blanks
   and tabs inside made single blanks. */
void CopyTrimmed(char *szOut, const char *s, int nLen)
{
   int n = 0;

   for (; nLen > 0 && isspace(*s); s++, nLen--)
      ;
   for (; nLen > 0 && isspace(s[nLen - 1]); nLen--)
      ;
   for (; nLen > 0 && n < WORD_SIZE - 1; s++, nLen--)
      if (!isspace(*s))
         szOut[n++] = *s;
      else if (!isspace(s[-1]))
         szOut[n++] = ' ';
   szOut[n] = '\0';
}

BOOL IsOneOf(const char *s, int nLen, char **szWords, int nWords)
{
   int i;

   for (i = 0; i < nWords; i++)
      if ((int)strlen(szWords[i]) == nLen && strncmp(s, szWords[i], nLen) == 0)
         return TRUE;
   return FALSE;
}

/* Removes comments from szText in place; a "//" comment runs to the end. */
void StripComments(char *szText)
{
   char *p, *pEnd;

   if ((p = strstr(szText, "//")) != NULL)
      *p = '\0';
   while ((p = strstr(szText, "/*")) != NULL) {
      pEnd = strstr(p + 2, "*/");
      if (!pEnd) {
         *p = '\0';
         break;
      }
      memset(p, ' ', pEnd + 2 - p);
   }
}

/* Joins the lines from nLine on into szHeader, up to the ")" that closes its first
   "(". FALSE when there is no "(" on nLine or no such ")" soon after. */
BOOL ReadHeader(HDOC hDoc, int nLine)
{
   int nDepth = 0, nLast = nLine + HEADER_LINES, nLines = Zol_GetNumberOfLines(hDoc);
   BOOL bOpened = FALSE;
   char *p;

   szHeader[0] = '\0';
   for (; nLine <= nLines && nLine < nLast; nLine++) {
      Zol_GetLine(hDoc, nLine, szLine, LINE_SIZE);
      StripComments(szLine);
      if (!bOpened && !strchr(szLine, '('))
         return FALSE;
      if (strlen(szHeader) + strlen(szLine) + 2 > HEADER_SIZE)
         return FALSE;
      strcat(szHeader, szLine);
      strcat(szHeader, " ");
      for (p = szLine; *p; p++) {
         if (*p == '(') {
            nDepth++;
            bOpened = TRUE;
         } else if (*p == ')' && --nDepth == 0) {
            return TRUE;
         }
      }
   }
   return FALSE;
}

/* Splits the parameter list between pOpen's "(" and its ")" at the commas outside
   brackets; the start and length of each parameter go to pStart and nLen. */
int SplitParams(char *pOpen, char **pStart, int *nLen)
{
   int nDepth = 0, nParams = 0;
   char *p, *pParam = pOpen + 1;

   for (p = pOpen + 1; *p; p++) {
      if (*p == '(' || *p == '[' || *p == '<' || *p == '{')
         nDepth++;
      else if ((*p == ')' || *p == ']' || *p == '>' || *p == '}') && nDepth > 0)
         nDepth--;
      else if ((*p == ',' || *p == ')') && nDepth == 0 && nParams < MAX_PARAMS) {
         pStart[nParams] = pParam;
         nLen[nParams++] = p - pParam;
         pParam = p + 1;
         if (*p == ')')
            break;
      }
   }
   return nParams;
}

/* Finds the name in one parameter declaration: the last identifier, or in a
   function pointer the last one inside its first brackets. The name's start and
   length go to pName and pNameLen; FALSE when there is none. */
BOOL FindParamName(char *s, int nLen, char **pName, int *pNameLen)
{
   char *p, *pEnd = s + nLen, *q;

   if ((q = memchr(s, '=', nLen)) != NULL)
      pEnd = q;
   if ((q = memchr(s, '(', pEnd - s)) != NULL && (p = memchr(q, ')', pEnd - q)) != NULL)
      pEnd = p;
   *pName = NULL;
   for (p = s; p < pEnd; p++)
      if (IsIdentChar(*p) && (p == s || !IsIdentChar(p[-1])) && !isdigit(*p))
         *pName = p;
   if (!*pName)
      return FALSE;
   for (*pNameLen = 0; *pName + *pNameLen < pEnd && IsIdentChar((*pName)[*pNameLen]); (*pNameLen)++)
      ;
   return TRUE;
}

/* Appends a line of the comment: the indent and the text, and for a tag with fields
   the type, when there is one, and the name. */
void AppendLine(TEXT *pOut, const char *szIndent, const char *szText, const char *szType, const char *szName)
{
   AppendString(pOut, szIndent);
   AppendString(pOut, szText);
   if (szName) {
      if (szType[0]) {
         AppendString(pOut, " ");
         AppendString(pOut, szType);
      }
      AppendString(pOut, " | ");
      AppendString(pOut, szName);
      AppendString(pOut, " |");
   }
   AppendString(pOut, "\r\n");
}

/* Appends the @parm line of one parameter declaration: its type (the declaration
   without its name and default) and its name. */
void AppendParam(TEXT *pOut, const char *szIndent, char *s, int nLen)
{
   char *pName, *pEq, szType[WORD_SIZE], szName[WORD_SIZE], szAfter[WORD_SIZE];
   int nNameLen, i;

   CopyTrimmed(szName, s, nLen);
   if (strcmp(szName, "...") == 0) {
      AppendLine(pOut, szIndent, " * @parmvar", NULL, NULL);
      return;
   }
   if ((pEq = memchr(s, '=', nLen)) != NULL)
      nLen = pEq - s;
   if (!FindParamName(s, nLen, &pName, &nNameLen))
      return;
   CopyTrimmed(szName, pName, nNameLen);
   /* The type is what is left around the name. */
   CopyTrimmed(szType, s, pName - s);
   CopyTrimmed(szAfter, pName + nNameLen, s + nLen - pName - nNameLen);
   i = strlen(szType);
   if (i > 0 && i < WORD_SIZE - 2 && IsIdentChar(szType[i - 1]) && IsIdentChar(szAfter[0]))
      szType[i++] = ' ';
   strncpy(szType + i, szAfter, WORD_SIZE - 1 - i);
   szType[WORD_SIZE - 1] = '\0';
   AppendLine(pOut, szIndent, " * @parm", szType, szName);
}

/* The return type: what precedes the name, without the specifiers and Java
   annotations in front. */
void GetReturnType(char *szType, char *pName)
{
   char *p = szHeader;
   int nLen;

   for (;;) {
      while (isspace(*p))
         p++;
      for (nLen = *p == '@' ? 1 : 0; IsIdentChar(p[nLen]); nLen++)
         ;
      if (nLen == 0 || (*p != '@' && !IsOneOf(p, nLen, szSpecifiers, sizeof szSpecifiers / sizeof szSpecifiers[0])))
         break;
      p += nLen;
   }
   CopyTrimmed(szType, p, pName > p ? pName - p : 0);
}

/* Appends the comment for a function of that type and name whose parameter list
   opens at pOpen. */
void WriteComment(TEXT *pOut, const char *szIndent, const char *szType, const char *szName, char *pOpen)
{
   char *pStart[MAX_PARAMS], szFirst[WORD_SIZE];
   int nLen[MAX_PARAMS], nParams = SplitParams(pOpen, pStart, nLen), i;

   AppendLine(pOut, szIndent, "/*", NULL, NULL);
   AppendLine(pOut, szIndent, " * @func", szType, szName);
   szFirst[0] = '\0';
   if (nParams == 1)
      CopyTrimmed(szFirst, pStart[0], nLen[0]);
   if (nParams > 1 || (szFirst[0] && strcmp(szFirst, "void") != 0)) {
      AppendLine(pOut, szIndent, " *", NULL, NULL);
      for (i = 0; i < nParams; i++)
         AppendParam(pOut, szIndent, pStart[i], nLen[i]);
   }
   if (szType[0] && strcmp(szType, "void") != 0) {
      AppendLine(pOut, szIndent, " *", NULL, NULL);
      AppendLine(pOut, szIndent, " * @rdesc", NULL, NULL);
   }
   AppendLine(pOut, szIndent, " */", NULL, NULL);
}

/* Builds the comment for the header in szHeader into pOut; FALSE when the header is
   no function's. */
BOOL BuildComment(const char *szIndent, TEXT *pOut)
{
   char *pOpen = strchr(szHeader, '('), *pName;
   char szName[WORD_SIZE], szType[WORD_SIZE];

   for (pName = pOpen; pName > szHeader && isspace(pName[-1]); pName--)
      ;
   while (pName > szHeader && (IsIdentChar(pName[-1]) || pName[-1] == ':' || pName[-1] == '~'))
      pName--;
   CopyTrimmed(szName, pName, pOpen - pName);
   if (!IsIdentChar(szName[0]) && szName[0] != '~' && szName[0] != ':')
      return FALSE;
   if (IsOneOf(szName, strlen(szName), szStatements, sizeof szStatements / sizeof szStatements[0]))
      return FALSE;
   GetReturnType(szType, pName);
   /* "x = f(a);" and the like are calls, not headers. */
   if (strpbrk(szType, "=;{}()") != NULL)
      return FALSE;
   WriteComment(pOut, szIndent, szType, szName, pOpen);
   return TRUE;
}

int ScriptMain(HDOC hDoc)
{
   int nCol, nLine, i;
   char szIndent[LINE_SIZE];
   TEXT out;

   Zol_GetCursorPos(hDoc, &nCol, &nLine);
   Zol_GetLine(hDoc, nLine, szLine, LINE_SIZE);
   for (i = 0; szLine[i] == ' ' || szLine[i] == '\t'; i++)
      szIndent[i] = szLine[i];
   szIndent[i] = '\0';
   out.text = NULL;
   out.length = out.size = 0;
   if (!ReadHeader(hDoc, nLine) || !BuildComment(szIndent, &out)) {
      MsgBox("The cursor is not on the header of a function.", MB_OK);
      return 1;
   }
   Zol_SetCursorPos(hDoc, 1, nLine, FALSE);
   Zol_InsertText(hDoc, out.text);
   Zol_SetCursorPos(hDoc, Zol_GetLineLen(hDoc, nLine + 1, FALSE) + 1, nLine + 1, FALSE);
   free(out.text);
   return 0;
}
