/* The editor application: its version and folders, user tools, the status bar. */
#ifndef __EDITOR_APP_H
#define __EDITOR_APP_H
#include <windows.h>
/* Flags of Zol_ExecuteTool. */
#define ZOL_TOOL_CAPTURE 1  /* output into an output document; returns once the tool ended */
#define ZOL_TOOL_ASKARGS 2  /* the argument line is shown for editing first */
/* Built-in functions: generated from script/builtins.def */
long Zol_CallDLLFunc(const char *library, const char *function, ...);
int Zol_GetVersion(void);
HWND Zol_GetMainWndHandle(void);
void Zol_CheckFileTime(void);
BOOL Zol_GetTextEditorDir(char *buffer, int size);
BOOL Zol_GetModuleDir(char *buffer, int size);
BOOL Zol_GetTempFileName(char *buffer);
BOOL Zol_ExecuteTool(const char *program, const char *arguments, int flags, const char *directory);
void Zol_StatusBarMsg(const char *text);
void Zol_MemFree(void *p);
/* End of built-in functions */
#endif
