/* Zolder plug-in interface.
 *
 * A plug-in is a shared library with the extension ".zop" in the "PlugIns" folder of
 * the Zolder home. It exports XPP_Initialize (required) and any of the other XPP_
 * entry points below, and drives the editor through the Zol_ and XPZ_ functions, which
 * the Zolder library exports. This header is plain C89 and C++.
 *
 * Conventions: positions are 1-based with the column before the line; a null HDOC is
 * "no document" and every function answers it with a neutral value (0, or -1 where
 * noted); buffers are always terminated, a truncated copy holds size-1 characters;
 * text that Zol_GetText and Zol_GetSelection allocate is released with Zol_MemFree.
 * No function raises; all of them must be called from the thread that loaded the
 * plug-in. */
#ifndef ZOLDER_API_H
#define ZOLDER_API_H

#include <stddef.h>

/* The calling convention of every function and entry point (callee pops on 32-bit
 * Windows, the platform default everywhere else). */
#if defined(_WIN32) && !defined(_WIN64)
#define ZOLAPI __stdcall
#else
#define ZOLAPI
#endif

/* Marks what a library exports; plug-ins put ZOL_PLUGIN_EXPORT before their XPP_
 * definitions so that they stay visible when built with hidden visibility. */
#if defined(__GNUC__)
#define ZOL_EXPORT __attribute__((visibility("default")))
#else
#define ZOL_EXPORT
#endif
#define ZOL_PLUGIN_EXPORT ZOL_EXPORT

#ifdef __cplusplus
extern "C" {
#endif

typedef void *HDOC;         /* an open document */
typedef void *ZOL_MODULE;   /* a loaded plug-in module (and the program's own) */
typedef ptrdiff_t ZOL_WND;  /* a window: the main window, a dialog; 0 when none */
typedef ptrdiff_t ZOL_PARAM;/* an event or command parameter, wide enough for a pointer */
#ifndef _WIN32
typedef int BOOL;
#endif
#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

/* Capacities. */
#define ZOL_MAX_LINE_LEN 3200   /* columns of a line */
#define ZOL_MAX_PATH 260        /* buffer of Zol_GetTempFileName */
#define ZOL_FIND_TEXT_SIZE 256  /* buffers of Zol_FindDlg and Zol_ReplaceDlg */
#define ZOL_INFO_SIZE 256       /* buffer given to XPP_GetInformation */
#define ZOL_PLUGIN_NAME_LEN 31  /* characters kept of a plug-in's name */

/* Flags of Zol_ExecuteTool. */
#define ZOL_TOOL_CAPTURE 1  /* output into an output document; returns once the tool ended */
#define ZOL_TOOL_ASKARGS 2  /* the argument line is shown for editing first */

/* Editor events: the first argument of XPP_OnEditorEvent. Parameter 1 is the document
 * where one is involved. */
#define ZOL_EV_FRAME_GROUP_OPEN 1
#define ZOL_EV_FRAME_GROUP_NEXT 2
#define ZOL_EV_FRAME_GROUP_END 3
#define ZOL_EV_FRAME_CLOSING 4       /* always followed by 3 */
#define ZOL_EV_TOOLBAR 10
#define ZOL_EV_STARTED 50            /* once after start-up; (0, application, 0) */
#define ZOL_EV_DOC_CREATED 100
#define ZOL_EV_DOC_OPENED 101
#define ZOL_EV_DOC_BEFORE_SAVE 105   /* non-zero answer stops the save */
#define ZOL_EV_DOC_SAVED 106
#define ZOL_EV_DOC_FILE_NAMED 107    /* (document, 0, file name) */
#define ZOL_EV_DOC_BEFORE_CLOSE 108  /* non-zero answer keeps the document open */
#define ZOL_EV_DOC_DESTROYING 109
#define ZOL_EV_DOC_ACTIVATED 120
#define ZOL_EV_DOC_DEACTIVATED 121
#define ZOL_EV_VIEW_NOTIFY 125       /* (document, ZOL_VIEW_..., 0); non-zero answer vetoes */

/* What a document window tells with ZOL_EV_VIEW_NOTIFY, its parameter 2. */
#define ZOL_VIEW_CONTEXT_MENU 1  /* its context menu is about to open; non-zero: it does not */
#define ZOL_VIEW_DOUBLE_CLICK 2  /* a double click is about to select the word; non-zero: it does not */

/* Command ids the program itself sends to XPP_OnEditorCommand. */
#define ZOL_CMD_DOC_WINDOW_CLOSED 254
#define ZOL_CMD_DOC_WINDOW_FOCUSED 255

/* XPP_GetInformation kinds. */
#define ZOL_INFO_NAME 1

/* Entry points a plug-in exports (all but XPP_Initialize optional). */
BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version);
void ZOLAPI XPP_GetInformation(int kind, char *buffer);
ZOL_PARAM ZOLAPI XPP_OnEditorEvent(int event, ZOL_PARAM p1, ZOL_PARAM p2, ZOL_PARAM p3);
ZOL_PARAM ZOLAPI XPP_OnEditorCommand(int command, HDOC doc, ZOL_PARAM p1, ZOL_PARAM p2);
void ZOLAPI XPP_OnMenuCommand(int itemId, ZOL_PARAM reserved);
void ZOLAPI XPP_OnMenuHelp(int helpContext, int itemId);
BOOL ZOLAPI XPP_CanUnload(void);
void ZOLAPI XPP_Unload(ZOL_PARAM owner);
void ZOLAPI XPP_Help(ZOL_WND dialog);
void ZOLAPI XPP_About(ZOL_WND dialog);
void ZOLAPI XPP_Options(ZOL_WND dialog);
/* The plug-in's dockable windows and workspace views, which it paints itself. */
void ZOLAPI XPP_OnPaintWindow(ZOL_WND window, void *canvas, int width, int height);
void ZOLAPI XPP_OnWindowMouse(ZOL_WND window, int event, int x, int y);

/* Application and dialogs. */
ZOL_EXPORT int ZOLAPI Zol_GetVersion(void); /* (major << 8) | minor */
ZOL_EXPORT ZOL_WND ZOLAPI Zol_GetMainWndHandle(void);
ZOL_EXPORT void ZOLAPI Zol_CheckFileTime(void);
ZOL_EXPORT void ZOLAPI Zol_StatusBarMsg(const char *text);
ZOL_EXPORT BOOL ZOLAPI Zol_GetTextEditorDir(char *buffer, int size);
/* the folder of the program file, with its trailing separator */
ZOL_EXPORT BOOL ZOLAPI Zol_GetModuleDir(char *buffer, int size);
ZOL_EXPORT BOOL ZOLAPI Zol_GetTempFileName(char *buffer);
ZOL_EXPORT BOOL ZOLAPI Zol_ExecuteTool(const char *program, const char *arguments, int flags,
                                       const char *directory);
ZOL_EXPORT BOOL ZOLAPI Zol_ExecuteMacro(HDOC doc, const char *macro);
ZOL_EXPORT BOOL ZOLAPI Zol_FindDlg(char *text, BOOL *wholeWord, BOOL *matchCase, BOOL *regExp,
                                   BOOL *forward);
ZOL_EXPORT int ZOLAPI Zol_ReplaceDlg(char *findText, char *replaceText, BOOL *wholeWord,
                                     BOOL *matchCase, BOOL *regExp, BOOL *forward, BOOL *inSelection);
ZOL_EXPORT BOOL ZOLAPI Zol_OpenFileDlg(char *buffer, int size, const char *filter, const char *title);
ZOL_EXPORT BOOL ZOLAPI Zol_SaveFileDlg(char *buffer, int size, short *format, const char *title);
ZOL_EXPORT BOOL ZOLAPI Zol_BrowseForFileDlg(char *buffer, int size, const char *filter,
                                            const char *title, const char *startDir, int flags,
                                            ZOL_WND owner);
ZOL_EXPORT BOOL ZOLAPI Zol_BrowseForDirDlg(char *buffer, int size, const char *title);
ZOL_EXPORT BOOL ZOLAPI Zol_GetStringDlg(const char *title, const char *prompt, char *buffer, int size);
ZOL_EXPORT BOOL ZOLAPI Zol_GetIntDlg(const char *title, const char *prompt, int *value, int minimum,
                                     int maximum);
/* items: "one\0two\0\0"; on confirmation the chosen item is copied to its start */
ZOL_EXPORT BOOL ZOLAPI Zol_ListBoxDlg(const char *title, char *items);
ZOL_EXPORT BOOL ZOLAPI Zol_ReadMeStringDlg(const char *title, const char *text, int width, int height);
ZOL_EXPORT BOOL ZOLAPI Zol_ReadMeFileDlg(const char *title, const char *path, int width, int height);

/* Documents. */
ZOL_EXPORT BOOL ZOLAPI Zol_IsDocument(HDOC doc);
ZOL_EXPORT HDOC ZOLAPI Zol_GetActiveDocument(void);
ZOL_EXPORT void ZOLAPI Zol_SetActiveDocument(HDOC doc);
ZOL_EXPORT HDOC ZOLAPI Zol_NewDocument(void);
ZOL_EXPORT HDOC ZOLAPI Zol_OpenDocument(const char *path);
ZOL_EXPORT BOOL ZOLAPI Zol_CloseDocument(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_DestroyDocument(HDOC doc);
/* the window showing the document, never equal to the document's handle; 0 for a
 * document without one (the headless runner has none) */
ZOL_EXPORT ZOL_WND ZOLAPI Zol_GetDocWndHandle(HDOC doc);
ZOL_EXPORT int ZOLAPI Zol_GetNumberOfDocuments(void);
ZOL_EXPORT HDOC ZOLAPI Zol_GetFirstDocument(void);
ZOL_EXPORT HDOC ZOLAPI Zol_GetLastDocument(void);
ZOL_EXPORT HDOC ZOLAPI Zol_GetNextDocument(HDOC doc);
ZOL_EXPORT HDOC ZOLAPI Zol_GetPrevDocument(HDOC doc);
ZOL_EXPORT BOOL ZOLAPI Zol_ReadFile(HDOC doc, const char *path);
ZOL_EXPORT BOOL ZOLAPI Zol_SaveFile(HDOC doc, int reserved);
/* format 0 CR LF, 1 LF, 2 CR, -1 the document's own; blockOnly writes the selection */
ZOL_EXPORT BOOL ZOLAPI Zol_WriteFile(HDOC doc, const char *path, int format, BOOL blockOnly);
ZOL_EXPORT BOOL ZOLAPI Zol_GetDocumentName(HDOC doc, char *buffer, int size);
ZOL_EXPORT int ZOLAPI Zol_GetFileName(HDOC doc, char *buffer, int size);
ZOL_EXPORT int ZOLAPI Zol_GetFileExtension(HDOC doc, char *buffer, int size);
ZOL_EXPORT void ZOLAPI Zol_SetFileName(HDOC doc, const char *path);
ZOL_EXPORT int ZOLAPI Zol_GetTextFileFormat(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_SetTextFileFormat(HDOC doc, int format);
ZOL_EXPORT BOOL ZOLAPI Zol_IsModified(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_SetModified(HDOC doc, BOOL modified);
ZOL_EXPORT BOOL ZOLAPI Zol_IsReadOnly(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_SetReadOnly(HDOC doc, BOOL readOnly);
ZOL_EXPORT BOOL ZOLAPI Zol_IsOutputWindow(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_SetOutputWindow(HDOC doc, BOOL output);
ZOL_EXPORT BOOL ZOLAPI Zol_IsMacroRecording(HDOC doc);
ZOL_EXPORT BOOL ZOLAPI Zol_IsMacroRunning(HDOC doc);

/* Editor commands and redraw. */
ZOL_EXPORT void ZOLAPI Zol_EditorCommand(HDOC doc, int command, int param);
ZOL_EXPORT int ZOLAPI Zol_EdCmd(HDOC doc, int command, int param);
/* Locks nest: the window paints again at the unlock that matches the first lock. */
ZOL_EXPORT void ZOLAPI Zol_LockUpdate(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_UnlockUpdate(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_RedrawWindow(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_FixWindowPos(HDOC doc);

/* Text. */
ZOL_EXPORT BOOL ZOLAPI Zol_InsertText(HDOC doc, const char *text);
ZOL_EXPORT int ZOLAPI Zol_GetNumberOfLines(HDOC doc);
ZOL_EXPORT int ZOLAPI Zol_GetLine(HDOC doc, int line, char *buffer, int size);
ZOL_EXPORT BOOL ZOLAPI Zol_SetLine(HDOC doc, int line, const char *text);
ZOL_EXPORT int ZOLAPI Zol_GetLineLen(HDOC doc, int line, BOOL raw);
ZOL_EXPORT int ZOLAPI Zol_GetMaxLineLen(void);
ZOL_EXPORT char *ZOLAPI Zol_GetText(HDOC doc, int col1, int line1, int col2, int line2);
ZOL_EXPORT char *ZOLAPI Zol_GetSelection(HDOC doc);
ZOL_EXPORT int ZOLAPI Zol_GetCurrentChar(HDOC doc);

/* Cursor and selection. */
ZOL_EXPORT void ZOLAPI Zol_GetCursorPos(HDOC doc, int *col, int *line);
ZOL_EXPORT void ZOLAPI Zol_SetCursorPos(HDOC doc, int col, int line, BOOL extend);
ZOL_EXPORT void ZOLAPI Zol_SetCursorPosExactly(HDOC doc, int col, int line, BOOL extend);
ZOL_EXPORT void ZOLAPI Zol_GetWndScrollPos(HDOC doc, int *col, int *line);
ZOL_EXPORT void ZOLAPI Zol_SetWndScrollPos(HDOC doc, int col, int line);
ZOL_EXPORT BOOL ZOLAPI Zol_IsSelExist(HDOC doc);
ZOL_EXPORT BOOL ZOLAPI Zol_IsColumnSelMode(HDOC doc);
ZOL_EXPORT BOOL ZOLAPI Zol_IsSelecting(HDOC doc);
ZOL_EXPORT BOOL ZOLAPI Zol_IsLineDrawing(HDOC doc);
ZOL_EXPORT int ZOLAPI Zol_GetSelType(HDOC doc);
ZOL_EXPORT int ZOLAPI Zol_GetSelMode(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_SetSelMode(HDOC doc, int mode);
ZOL_EXPORT BOOL ZOLAPI Zol_GetSelBeginPos(HDOC doc, int *col, int *line);
ZOL_EXPORT BOOL ZOLAPI Zol_GetSelEndPos(HDOC doc, int *col, int *line);

/* Search: 0 found, 1 not found, -1 bad arguments or a pattern that does not compile. */
ZOL_EXPORT int ZOLAPI Zol_Find(HDOC doc, const char *text, int col, int line, BOOL wholeWord,
                               BOOL matchCase, BOOL regExp, BOOL forward);
ZOL_EXPORT int ZOLAPI Zol_FindInLine(HDOC doc, const char *text, int col, int line, BOOL wholeWord,
                                     BOOL matchCase, BOOL regExp, BOOL forward);
ZOL_EXPORT int ZOLAPI Zol_Replace(HDOC doc, const char *text, const char *replacement, int col, int line,
                                  BOOL wholeWord, BOOL matchCase, BOOL regExp, BOOL forward);
ZOL_EXPORT int ZOLAPI Zol_ReplaceInLine(HDOC doc, const char *text, const char *replacement, int col,
                                        int line, BOOL wholeWord, BOOL matchCase, BOOL regExp,
                                        BOOL forward);
/* position: 0-based offset of the match in text */
ZOL_EXPORT int ZOLAPI Zol_FindInString(const char *text, const char *pattern, BOOL wholeWord,
                                       BOOL matchCase, BOOL regExp, int *position, int *length);

/* Options (process-wide unless a document is given). */
ZOL_EXPORT BOOL ZOLAPI Zol_IsWordWrap(void);
ZOL_EXPORT void ZOLAPI Zol_SetWordWrap(BOOL on);
ZOL_EXPORT int ZOLAPI Zol_GetWordWrapMethod(void);
ZOL_EXPORT void ZOLAPI Zol_SetWordWrapMethod(int method);
ZOL_EXPORT int ZOLAPI Zol_GetWordWrapCol(void);
ZOL_EXPORT void ZOLAPI Zol_SetWordWrapCol(int col);
ZOL_EXPORT int ZOLAPI Zol_GetTabSize(void);
ZOL_EXPORT void ZOLAPI Zol_SetTabSize(int size);
ZOL_EXPORT int ZOLAPI Zol_GetBlockIndent(void);
ZOL_EXPORT void ZOLAPI Zol_SetBlockIndent(int indent);
ZOL_EXPORT BOOL ZOLAPI Zol_IsAutoIndentMode(void);
ZOL_EXPORT void ZOLAPI Zol_SetAutoIndentMode(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsAutoUnindentMode(void);
ZOL_EXPORT void ZOLAPI Zol_SetAutoUnindentMode(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsOverwriteMode(void);
ZOL_EXPORT void ZOLAPI Zol_SetOverwriteMode(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsUseTabChar(void);
ZOL_EXPORT void ZOLAPI Zol_SetUseTabChar(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsSmartTab(void);
ZOL_EXPORT void ZOLAPI Zol_SetSmartTab(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsCursorBeyondEOL(void);
ZOL_EXPORT void ZOLAPI Zol_SetCursorBeyondEOL(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsKeepTrailingBlanks(void);
ZOL_EXPORT void ZOLAPI Zol_SetKeepTrailingBlanks(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsCursorThroughtTabs(void);
ZOL_EXPORT void ZOLAPI Zol_SetCursorThroughtTabs(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsBackupFiles(void);
ZOL_EXPORT void ZOLAPI Zol_SetBackupFiles(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsLineNumbers(void);
ZOL_EXPORT void ZOLAPI Zol_SetLineNumbers(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsACorrectTwoCapitals(void);
ZOL_EXPORT void ZOLAPI Zol_SetACorrectTwoCapitals(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsACorrectCapitalize(void);
ZOL_EXPORT void ZOLAPI Zol_SetACorrectCapitalize(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsACorrectCapsLock(void);
ZOL_EXPORT void ZOLAPI Zol_SetACorrectCapsLock(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_IsACorrectReplaceText(void);
ZOL_EXPORT void ZOLAPI Zol_SetACorrectReplaceText(BOOL on);
ZOL_EXPORT BOOL ZOLAPI Zol_CanSoftWordWrap(HDOC doc);
ZOL_EXPORT BOOL ZOLAPI Zol_IsDocWordWrap(HDOC doc);
ZOL_EXPORT void ZOLAPI Zol_SetDocWordWrap(HDOC doc, BOOL on);

/* Strings and memory. */
ZOL_EXPORT void ZOLAPI Zol_MemFree(void *p);
ZOL_EXPORT int ZOLAPI Zol_StrLen(const char *s);
ZOL_EXPORT int ZOLAPI Zol_StrLenTrim(const char *s);
ZOL_EXPORT int ZOLAPI Zol_GetCharColumnPos(const char *s, const char *p);
ZOL_EXPORT char *ZOLAPI Zol_GetCharPtr(char *s, int col);
ZOL_EXPORT char *ZOLAPI Zol_StrLwr(char *s);
ZOL_EXPORT char *ZOLAPI Zol_StrUpr(char *s);
ZOL_EXPORT int ZOLAPI Zol_ToUpper(int c);
ZOL_EXPORT int ZOLAPI Zol_ToLower(int c);
ZOL_EXPORT BOOL ZOLAPI Zol_IsUpper(int c);
ZOL_EXPORT BOOL ZOLAPI Zol_IsAlpha(int c);

/* Services for plug-ins. Plug-in commands get numbers from 2000 on; a key or macro
 * runs one with the editor command "PlugInCommandID" and the number as parameter, and
 * the owning plug-ins hear it through XPP_OnEditorCommand(number, document, 0, 0). */
ZOL_EXPORT int ZOLAPI XPZ_AddCommand(ZOL_MODULE module, int itemId, const char *name,
                                     const char *menuText, const char *description, int flags);
/* modifiers: 1 Shift, 2 Ctrl, 4 Alt; virtualKey is a Windows virtual-key code */
ZOL_EXPORT BOOL ZOLAPI XPZ_CanAddShortcutKey(int virtualKey, int modifiers, int prefixTable,
                                             int reserved);
/* keyMap: any non-null value stands for the program's key map; prefixTable 0 is the
 * primary table, 1..6 the tables of the prefix keys */
ZOL_EXPORT int ZOLAPI XPZ_IsShortcutKeyAlreadyMapped(void *keyMap, int virtualKey, int modifiers,
                                                    int prefixTable);
ZOL_EXPORT BOOL ZOLAPI XPZ_AddShortcutKey(ZOL_MODULE module, int command, int virtualKey,
                                          int modifiers, int prefixTable, int reserved);
ZOL_EXPORT BOOL ZOLAPI XPZ_RemoveShortcutKey(int virtualKey, int modifiers);
ZOL_EXPORT BOOL ZOLAPI XPZ_KeyMappingDlg(ZOL_WND owner, int reserved1, int reserved2);
ZOL_EXPORT BOOL ZOLAPI XPZ_IsScriptRunning(void);
ZOL_EXPORT BOOL ZOLAPI XPZ_ExecScript(const char *path, const char *arguments);
ZOL_EXPORT BOOL ZOLAPI XPZ_AddViewToWorkspace(ZOL_MODULE module, ZOL_WND view, const char *title,
                                              int image, ZOL_PARAM data);
ZOL_EXPORT BOOL ZOLAPI XPZ_RemoveViewFromWorkspace(ZOL_WND view);

/* Dockable windows and workspace views. The window a plug-in names to
 * XPZ_CreateDockableWindow or XPZ_AddViewToWorkspace is a number of its own choosing,
 * which no other window of the program may have: the address of one of its own static
 * variables is such a number. Zolder makes the window and has the plug-in fill it:
 * XPP_OnPaintWindow(window, canvas, width, height) whenever it must be painted, with a
 * canvas that the XPZ_Canvas functions draw on until that call returns, and
 * XPP_OnWindowMouse(window, event, x, y) when the user clicks in it. Coordinates are
 * pixels from the window's top left corner; colours are 0xRRGGBB. */
#define ZOL_DOCK_LEFT 0     /* dockPosition: where the window first appears */
#define ZOL_DOCK_TOP 1
#define ZOL_DOCK_RIGHT 2
#define ZOL_DOCK_BOTTOM 3
#define ZOL_DOCK_FLOAT 4    /* a window of its own */
#define ZOL_ALLOW_ANY 0         /* allowedPositions: any side */
#define ZOL_ALLOW_LEFT_RIGHT 1
#define ZOL_ALLOW_TOP_BOTTOM 2
#define ZOL_ALLOW_START_SIDE 3  /* the side of dockPosition only */
#define ZOL_ALLOW_FLOAT_ONLY 4  /* never docked */
#define ZOL_MOUSE_CLICK 1       /* XPP_OnWindowMouse events */
#define ZOL_MOUSE_DOUBLE_CLICK 2
#define ZOL_MOUSE_RIGHT_CLICK 3
#define ZOL_COLOR_WINDOW 0      /* XPZ_CanvasColor: the desktop theme's colours */
#define ZOL_COLOR_TEXT 1
#define ZOL_COLOR_HIGHLIGHT 2
#define ZOL_COLOR_HIGHLIGHT_TEXT 3

/* The record XPZ_CreateDockableWindow takes: module, window and title must be set;
 * dockPosition is a ZOL_DOCK_ value, allowedPositions a ZOL_ALLOW_ value; width and
 * height are the first size in pixels (0: Zolder's choice). Zolder remembers where the
 * user puts the window, by module file and title, and brings it back there. */
typedef struct ZOL_DOCKABLE_WINDOW {
    ZOL_MODULE module;
    ZOL_WND window;
    const char *title;
    int dockPosition;
    int allowedPositions;
    int width;
    int height;
    ZOL_PARAM data;
} ZOL_DOCKABLE_WINDOW;
ZOL_EXPORT ZOL_WND ZOLAPI XPZ_CreateDockableWindow(const ZOL_DOCKABLE_WINDOW *description);
ZOL_EXPORT BOOL ZOLAPI XPZ_DestroyDockableWindow(ZOL_WND window);
/* Has a dockable window or workspace view painted again soon; 0 when there is none. */
ZOL_EXPORT BOOL ZOLAPI XPZ_RedrawWindow(ZOL_WND window);
/* Drawing while XPP_OnPaintWindow runs; any other canvas is ignored (0 results).
 * Text is Windows-1252, drawn with its top left corner at x, y; XPZ_CanvasText
 * returns its width in pixels. */
ZOL_EXPORT void ZOLAPI XPZ_CanvasFill(void *canvas, int x, int y, int width, int height, long rgb);
ZOL_EXPORT int ZOLAPI XPZ_CanvasText(void *canvas, int x, int y, const char *text, long rgb);
ZOL_EXPORT int ZOLAPI XPZ_CanvasLineHeight(void *canvas);
ZOL_EXPORT long ZOLAPI XPZ_CanvasColor(void *canvas, int which);
ZOL_EXPORT ZOL_MODULE ZOLAPI XPZ_GetPlugInInstance(const char *name, int reserved);
ZOL_EXPORT BOOL ZOLAPI XPZ_IsPlugInLoaded(const char *name, int reserved);
ZOL_EXPORT ZOL_MODULE ZOLAPI XPZ_GetProgramInstance(void);
ZOL_EXPORT BOOL ZOLAPI XPZ_GetPlugInName(ZOL_MODULE module, char *buffer, int size);
ZOL_EXPORT BOOL ZOLAPI XPZ_LoadPlugIn(const char *path);
ZOL_EXPORT BOOL ZOLAPI XPZ_UnloadPlugIn(ZOL_MODULE module);
ZOL_EXPORT BOOL ZOLAPI XPZ_EntryPoint(int reason, ZOL_PARAM reserved);

#ifdef __cplusplus
}
#endif

#endif /* ZOLDER_API_H */
