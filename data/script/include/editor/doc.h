/* Documents: opening and walking them, editor commands, text, cursor and selection,
   search, and the editor's string helpers. */
#ifndef __EDITOR_DOC_H
#define __EDITOR_DOC_H
#include <windows.h>
/* Built-in functions: generated from script/builtins.def */
HDOC Zol_GetActiveDocument(void);
void Zol_SetActiveDocument(HDOC doc);
HDOC Zol_NewDocument(void);
HDOC Zol_OpenDocument(const char *path);
BOOL Zol_CloseDocument(HDOC doc);
void Zol_DestroyDocument(HDOC doc);
HWND Zol_GetDocWndHandle(HDOC doc);
BOOL Zol_IsDocument(HDOC doc);
int Zol_GetNumberOfDocuments(void);
HDOC Zol_GetFirstDocument(void);
HDOC Zol_GetLastDocument(void);
HDOC Zol_GetPrevDocument(HDOC doc);
HDOC Zol_GetNextDocument(HDOC doc);
BOOL Zol_ReadFile(HDOC doc, const char *path);
BOOL Zol_SaveFile(HDOC doc, int reserved);
BOOL Zol_WriteFile(HDOC doc, const char *path, int format, BOOL blockOnly);
int Zol_EdCmd(HDOC doc, int command, int param);
void Zol_EditorCommand(HDOC doc, int command, int param);
BOOL Zol_ExecuteMacro(HDOC doc, const char *macro);
void Zol_LockUpdate(HDOC doc);
void Zol_UnlockUpdate(HDOC doc);
void Zol_RedrawWindow(HDOC doc);
BOOL Zol_InsertText(HDOC doc, const char *text);
int Zol_GetNumberOfLines(HDOC doc);
int Zol_GetLine(HDOC doc, int line, char *buffer, int size);
BOOL Zol_SetLine(HDOC doc, int line, const char *text);
int Zol_GetLineLen(HDOC doc, int line, BOOL raw);
int Zol_GetCurrentChar(HDOC doc);
char *Zol_GetText(HDOC doc, int col1, int line1, int col2, int line2);
char *Zol_GetSelection(HDOC doc);
int Zol_GetMaxLineLen(void);
void Zol_GetCursorPos(HDOC doc, int *col, int *line);
void Zol_SetCursorPos(HDOC doc, int col, int line, BOOL extend);
void Zol_SetCursorPosExactly(HDOC doc, int col, int line, BOOL extend);
void Zol_GetWndScrollPos(HDOC doc, int *col, int *line);
void Zol_SetWndScrollPos(HDOC doc, int col, int line);
void Zol_FixWindowPos(HDOC doc);
BOOL Zol_IsSelExist(HDOC doc);
BOOL Zol_IsColumnSelMode(HDOC doc);
int Zol_GetSelMode(HDOC doc);
void Zol_SetSelMode(HDOC doc, int mode);
int Zol_GetSelType(HDOC doc);
BOOL Zol_GetSelBeginPos(HDOC doc, int *col, int *line);
BOOL Zol_GetSelEndPos(HDOC doc, int *col, int *line);
BOOL Zol_IsSelecting(HDOC doc);
BOOL Zol_IsLineDrawing(HDOC doc);
BOOL Zol_IsModified(HDOC doc);
void Zol_SetModified(HDOC doc, BOOL modified);
BOOL Zol_IsReadOnly(HDOC doc);
void Zol_SetReadOnly(HDOC doc, BOOL readOnly);
BOOL Zol_GetDocumentName(HDOC doc, char *buffer, int size);
int Zol_GetFileName(HDOC doc, char *buffer, int size);
void Zol_SetFileName(HDOC doc, const char *path);
int Zol_GetFileExtension(HDOC doc, char *buffer, int size);
int Zol_GetTextFileFormat(HDOC doc);
void Zol_SetTextFileFormat(HDOC doc, int format);
BOOL Zol_IsOutputWindow(HDOC doc);
void Zol_SetOutputWindow(HDOC doc, BOOL output);
BOOL Zol_IsMacroRecording(HDOC doc);
BOOL Zol_IsMacroRunning(HDOC doc);
int Zol_Find(HDOC doc, const char *text, int col, int line, BOOL wholeWord, BOOL matchCase, BOOL regExp, BOOL forward);
int Zol_FindInLine(HDOC doc, const char *text, int col, int line, BOOL wholeWord, BOOL matchCase, BOOL regExp, BOOL forward);
int Zol_ReplaceInLine(HDOC doc, const char *text, const char *replacement, int col, int line, BOOL wholeWord, BOOL matchCase, BOOL regExp, BOOL forward);
int Zol_Replace(HDOC doc, const char *text, const char *replacement, int col, int line, BOOL wholeWord, BOOL matchCase, BOOL regExp, BOOL forward);
int Zol_FindInString(const char *text, const char *pattern, BOOL wholeWord, BOOL matchCase, BOOL regExp, int *position, int *length);
char *Zol_GetCharPtr(char *s, int col);
int Zol_GetCharColumnPos(const char *s, const char *p);
BOOL Zol_IsAlpha(int c);
BOOL Zol_IsUpper(int c);
int Zol_StrLen(const char *s);
int Zol_StrLenTrim(const char *s);
char *Zol_StrLwr(char *s);
char *Zol_StrUpr(char *s);
int Zol_ToLower(int c);
int Zol_ToUpper(int c);
/* End of built-in functions */
#endif
