/* The Windows types, constants and calls that scripts use. */
#ifndef __WINDOWS_H
#define __WINDOWS_H
#ifndef NULL
#define NULL ((void *)0)
#endif
typedef int BOOL;
typedef unsigned char BYTE;
typedef unsigned short WORD;
typedef unsigned long DWORD;
typedef unsigned int UINT;
typedef long LONG;
typedef char *LPSTR;
typedef const char *LPCSTR;
typedef void *LPVOID;
typedef void *HANDLE;
typedef void *HWND;
typedef void *HINSTANCE;
typedef void *HDOC;
#define TRUE 1
#define FALSE 0
#define MAX_PATH 260
#define MB_OK 0x0000
#define MB_OKCANCEL 0x0001
#define MB_ABORTRETRYIGNORE 0x0002
#define MB_YESNOCANCEL 0x0003
#define MB_YESNO 0x0004
#define MB_RETRYCANCEL 0x0005
#define MB_ICONHAND 0x0010
#define MB_ICONQUESTION 0x0020
#define MB_ICONEXCLAMATION 0x0030
#define MB_ICONASTERISK 0x0040
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_ICONSTOP MB_ICONHAND
#define MB_DEFBUTTON1 0x0000
#define MB_DEFBUTTON2 0x0100
#define MB_DEFBUTTON3 0x0200
#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_NORMAL 1
#define SW_SHOWMINIMIZED 2
#define SW_SHOWMAXIMIZED 3
#define SW_SHOW 5
#define SW_MINIMIZE 6
/* What WinExec and ShellExecute answer when the start failed; above 31 means it ran. */
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_PATH_NOT_FOUND 3
#define ERROR_BAD_FORMAT 11
#define SE_ERR_FNF 2
#define SE_ERR_PNF 3
#define SE_ERR_ACCESSDENIED 5
#define SE_ERR_OOM 8
#define SE_ERR_NOASSOC 31
#define HELP_CONTEXT 0x0001
#define HELP_QUIT 0x0002
#define HELP_INDEX 0x0003
#define HELP_CONTENTS 0x0003
/* Built-in functions: generated from script/builtins.def */
UINT GetSystemDirectory(LPSTR buffer, UINT size);
UINT GetWindowsDirectory(LPSTR buffer, UINT size);
DWORD GetShortPathName(LPCSTR longPath, LPSTR shortPath, DWORD size);
DWORD GetTickCount(void);
UINT GetProfileInt(LPCSTR section, LPCSTR key, int defaultValue);
DWORD GetProfileString(LPCSTR section, LPCSTR key, LPCSTR defaultValue, LPSTR buffer, DWORD size);
BOOL WriteProfileString(LPCSTR section, LPCSTR key, LPCSTR value);
UINT GetPrivateProfileInt(LPCSTR section, LPCSTR key, int defaultValue, LPCSTR fileName);
DWORD GetPrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR defaultValue, LPSTR buffer, DWORD size, LPCSTR fileName);
BOOL WritePrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR fileName);
BOOL AnsiToOem(LPCSTR source, LPSTR dest);
BOOL OemToAnsi(LPCSTR source, LPSTR dest);
BOOL AnsiToOemBuff(LPCSTR source, LPSTR dest, DWORD length);
BOOL OemToAnsiBuff(LPCSTR source, LPSTR dest, DWORD length);
LPSTR AnsiNext(LPCSTR current);
LPSTR AnsiPrev(LPCSTR start, LPCSTR current);
LPSTR AnsiUpper(LPSTR s);
LPSTR AnsiLower(LPSTR s);
DWORD AnsiUpperBuff(LPSTR s, DWORD length);
DWORD AnsiLowerBuff(LPSTR s, DWORD length);
BOOL IsCharAlpha(char c);
BOOL IsCharAlphaNumeric(char c);
BOOL IsCharUpper(char c);
BOOL IsCharLower(char c);
int lstrcmp(LPCSTR s1, LPCSTR s2);
int lstrcmpi(LPCSTR s1, LPCSTR s2);
BOOL IsDBCSLeadByte(BYTE c);
BOOL MessageBeep(UINT type);
int MessageBox(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
BOOL WinHelp(HWND owner, LPCSTR helpFile, UINT command, DWORD data);
UINT WinExec(LPCSTR commandLine, UINT show);
HINSTANCE ShellExecute(HWND owner, LPCSTR operation, LPCSTR file, LPCSTR parameters, LPCSTR directory, int show);
HWND FindWindow(LPCSTR className, LPCSTR windowName);
int MsgBox(LPCSTR text, UINT type);
HWND GetMainWndHandle(void);
void WaitCursor(void);
void RestoreCursor(void);
long CallDLLFunc(LPCSTR library, LPCSTR function, ...);
/* End of built-in functions */
#endif
