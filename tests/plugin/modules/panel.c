/* Shows a dockable window and a workspace view, and records what the editor asks of it:
 * events, paints, clicks, the plug-in dialog's buttons, menu help and unloading. */
#include <stdio.h>
#include <string.h>

#include "plugin/zolder_api.h"
#include "tests/plugin/modules/event_log.h"

static int g_dock;  /* their addresses are the windows' numbers */
static int g_view;
static int g_paints;
static int g_canUnload = 1;
static int g_vetoEvent;

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    ZOL_DOCKABLE_WINDOW dock;
    (void)mainWindow;
    (void)version;
    dock.module = module;
    dock.window = (ZOL_WND)&g_dock;
    dock.title = "Panel";
    dock.dockPosition = ZOL_DOCK_RIGHT;
    dock.allowedPositions = ZOL_ALLOW_ANY;
    dock.width = 180;
    dock.height = 0;
    dock.data = 0;
    if (!XPZ_CreateDockableWindow(&dock)) return FALSE;
    if (!XPZ_AddViewToWorkspace(module, (ZOL_WND)&g_view, "PanelView", 0, 0)) return FALSE;
    XPZ_AddCommand(module, 9, "PanelCommand", "&Panel Item", "Does nothing", 0);
    return TRUE;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_GetInformation(int kind, char *buffer) {
    if (kind == ZOL_INFO_NAME) strcpy(buffer, "Panel Test");
}

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorEvent(int event, ZOL_PARAM p1, ZOL_PARAM p2, ZOL_PARAM p3) {
    char text[32];
    (void)p1;
    (void)p3;
    if (event == ZOL_EV_VIEW_NOTIFY) sprintf(text, "e%d.%d", event, (int)p2);
    else sprintf(text, "e%d", event);
    note(text);
    return event == g_vetoEvent;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_OnPaintWindow(ZOL_WND window, void *canvas, int width, int height) {
    (void)width;
    (void)height;
    ++g_paints;
    XPZ_CanvasFill(canvas, 0, 0, width, height, 0xFFFFE0);
    XPZ_CanvasText(canvas, 4, 4, window == (ZOL_WND)&g_dock ? "dock" : "view",
                   XPZ_CanvasColor(canvas, ZOL_COLOR_TEXT));
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_OnWindowMouse(ZOL_WND window, int event, int x, int y) {
    char text[48];
    sprintf(text, "%s%d@%d,%d", window == (ZOL_WND)&g_dock ? "dock" : "view", event, x, y);
    note(text);
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_OnMenuHelp(int helpContext, int itemId) {
    char text[32];
    sprintf(text, "menuhelp%d", itemId);
    note(text);
    (void)helpContext;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_About(ZOL_WND dialog) { note(dialog ? "about" : "about0"); }
ZOL_PLUGIN_EXPORT void ZOLAPI XPP_Options(ZOL_WND dialog) { note(dialog ? "options" : "options0"); }
ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_CanUnload(void) { return g_canUnload; }

/* What the tests ask of the module. */
ZOL_PLUGIN_EXPORT const char *panel_log(void) { return g_log; }
ZOL_PLUGIN_EXPORT void panel_clear(void) { g_log[0] = '\0'; }
ZOL_PLUGIN_EXPORT int panel_paints(void) { return g_paints; }
ZOL_PLUGIN_EXPORT void panel_allow_unload(int allow) { g_canUnload = allow; }
ZOL_PLUGIN_EXPORT void panel_veto(int event) { g_vetoEvent = event; }
ZOL_PLUGIN_EXPORT ZOL_WND panel_dock(void) { return (ZOL_WND)&g_dock; }
ZOL_PLUGIN_EXPORT BOOL panel_close_dock(void) { return XPZ_DestroyDockableWindow((ZOL_WND)&g_dock); }
