/* Keeps every document open and counts how often it was asked. Built twice. */
#include "plugin/zolder_api.h"

static int g_asked;

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    (void)module;
    (void)mainWindow;
    (void)version;
    return TRUE;
}

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorEvent(int event, ZOL_PARAM p1, ZOL_PARAM p2, ZOL_PARAM p3) {
    (void)p1;
    (void)p2;
    (void)p3;
    if (event != ZOL_EV_DOC_BEFORE_CLOSE && event != ZOL_EV_DOC_BEFORE_SAVE) return 0;
    ++g_asked;
    return 1;
}

ZOL_PLUGIN_EXPORT int veto_asked(void) { return g_asked; }
