/* The editor's options, the same that the settings keep. */
#ifndef __EDITOR_OPTIONS_H
#define __EDITOR_OPTIONS_H
#include <windows.h>
/* Soft word wrap exists: scripts written for older versions test this. */
#define VEKC_SOFTWORDWRAP
/* Built-in functions: generated from script/builtins.def */
BOOL Zol_IsWordWrap(void);
void Zol_SetWordWrap(BOOL on);
int Zol_GetTabSize(void);
void Zol_SetTabSize(int size);
int Zol_GetWordWrapCol(void);
void Zol_SetWordWrapCol(int col);
int Zol_GetWordWrapMethod(void);
void Zol_SetWordWrapMethod(int method);
BOOL Zol_CanSoftWordWrap(HDOC doc);
BOOL Zol_IsDocWordWrap(HDOC doc);
void Zol_SetDocWordWrap(HDOC doc, BOOL on);
BOOL Zol_IsAutoIndentMode(void);
void Zol_SetAutoIndentMode(BOOL on);
BOOL Zol_IsAutoUnindentMode(void);
void Zol_SetAutoUnindentMode(BOOL on);
BOOL Zol_IsOverwriteMode(void);
void Zol_SetOverwriteMode(BOOL on);
int Zol_GetBlockIndent(void);
void Zol_SetBlockIndent(int indent);
BOOL Zol_IsUseTabChar(void);
void Zol_SetUseTabChar(BOOL on);
BOOL Zol_IsSmartTab(void);
void Zol_SetSmartTab(BOOL on);
BOOL Zol_IsCursorBeyondEOL(void);
void Zol_SetCursorBeyondEOL(BOOL on);
BOOL Zol_IsKeepTrailingBlanks(void);
void Zol_SetKeepTrailingBlanks(BOOL on);
BOOL Zol_IsCursorThroughtTabs(void);
void Zol_SetCursorThroughtTabs(BOOL on);
BOOL Zol_IsBackupFiles(void);
void Zol_SetBackupFiles(BOOL on);
BOOL Zol_IsACorrectTwoCapitals(void);
void Zol_SetACorrectTwoCapitals(BOOL on);
BOOL Zol_IsACorrectCapitalize(void);
void Zol_SetACorrectCapitalize(BOOL on);
BOOL Zol_IsACorrectCapsLock(void);
void Zol_SetACorrectCapsLock(BOOL on);
BOOL Zol_IsACorrectReplaceText(void);
void Zol_SetACorrectReplaceText(BOOL on);
BOOL Zol_IsLineNumbers(void);
void Zol_SetLineNumbers(BOOL on);
/* End of built-in functions */
#endif
