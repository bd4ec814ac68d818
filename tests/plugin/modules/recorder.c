/* Records what the editor tells it, and drives an edit through the interface on request. */
#include <stdio.h>
#include <string.h>

#include "plugin/zolder_api.h"
#include "tests/plugin/modules/event_log.h"

static int g_inits;
static int g_command;

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    (void)mainWindow;
    (void)version;
    ++g_inits;
    g_command = XPZ_AddCommand(module, 7, "RecorderCommand", "&Recorder", "Inserts a mark", 0);
    return TRUE;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_GetInformation(int kind, char *buffer) {
    if (kind == ZOL_INFO_NAME) strcpy(buffer, "Recorder");
}

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorEvent(int event, ZOL_PARAM p1, ZOL_PARAM p2, ZOL_PARAM p3) {
    char text[32];
    (void)p1;
    (void)p2;
    (void)p3;
    sprintf(text, "e%d", event);
    note(text);
    return 0;
}

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorCommand(int command, HDOC doc, ZOL_PARAM p1, ZOL_PARAM p2) {
    (void)p1;
    (void)p2;
    if (command != g_command) return 0;
    note("cmd");
    Zol_InsertText(doc, "<mark>");
    return 1;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_OnMenuCommand(int itemId, ZOL_PARAM reserved) {
    char text[32];
    (void)reserved;
    sprintf(text, "menu%d", itemId);
    note(text);
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_Unload(ZOL_PARAM owner) {
    (void)owner;
    note("unload");
}

/* What the tests ask of the module. */
ZOL_PLUGIN_EXPORT const char *recorder_log(void) { return g_log; }
ZOL_PLUGIN_EXPORT void recorder_clear(void) { g_log[0] = '\0'; }
ZOL_PLUGIN_EXPORT int recorder_inits(void) { return g_inits; }
ZOL_PLUGIN_EXPORT int recorder_command(void) { return g_command; }

/* A whole edit, as a plug-in author would write it: type, find, replace, save. */
ZOL_PLUGIN_EXPORT int recorder_drive(HDOC doc, const char *path) {
    int col = 0, line = 0;
    if (!Zol_InsertText(doc, "int main(void)\n{\n    return 0;\n}")) return 1;
    Zol_EditorCommand(doc, 41, 0); /* TextEnd */
    Zol_EditorCommand(doc, 15, 0); /* NewLine */
    Zol_EditorCommand(doc, 2, '}'); /* InsertChar */
    Zol_EditorCommand(doc, 6, 0);  /* Backspace */
    Zol_SetCursorPos(doc, 1, 1, FALSE);
    if (Zol_Find(doc, "return", 1, 1, FALSE, TRUE, FALSE, TRUE) != 0) return 2;
    Zol_GetCursorPos(doc, &col, &line);
    if (line != 3) return 3;
    if (Zol_Replace(doc, "0", "42", 1, 1, TRUE, TRUE, FALSE, TRUE) != 0) return 4;
    Zol_SetWordWrapCol(3200);
    Zol_SetFileName(doc, path);
    if (!Zol_SaveFile(doc, 0)) return 5;
    return 0;
}
