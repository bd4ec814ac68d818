/* The editor's dialogs: find and replace, files and folders, prompts, read-me texts. */
#ifndef __EDITOR_DLG_H
#define __EDITOR_DLG_H
#include <windows.h>
/* Built-in functions: generated from script/builtins.def */
BOOL Zol_FindDlg(char *text, BOOL *wholeWord, BOOL *matchCase, BOOL *regExp, BOOL *forward);
int Zol_ReplaceDlg(char *findText, char *replaceText, BOOL *wholeWord, BOOL *matchCase, BOOL *regExp, BOOL *forward, BOOL *inSelection);
BOOL Zol_OpenFileDlg(char *buffer, int size, const char *filter, const char *title);
BOOL Zol_SaveFileDlg(char *buffer, int size, short *format, const char *title);
BOOL Zol_BrowseForFileDlg(char *buffer, int size, const char *filter, const char *title, const char *startDir, int flags, HWND owner);
BOOL Zol_BrowseForDirDlg(char *buffer, int size, const char *title);
BOOL Zol_GetStringDlg(const char *title, const char *prompt, char *buffer, int size);
BOOL Zol_GetIntDlg(const char *title, const char *prompt, int *value, int minimum, int maximum);
BOOL Zol_ListBoxDlg(const char *title, char *items);
BOOL Zol_ReadMeFileDlg(const char *title, const char *path, int width, int height);
BOOL Zol_ReadMeStringDlg(const char *title, const char *text, int width, int height);
/* End of built-in functions */
#endif
