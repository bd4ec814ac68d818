/* Example plug-in: keeps a document with unsaved changes open when something tries to
 * close it, and says so in the status bar. Saving, undoing the changes, or removing
 * this module lets the document close again. */
#include <stdio.h>
#include <string.h>

#include "zolder_api.h"

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    (void)module;
    (void)mainWindow;
    (void)version;
    return TRUE;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_GetInformation(int kind, char *buffer) {
    if (kind == ZOL_INFO_NAME) strcpy(buffer, "Keep Unsaved");
}

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorEvent(int event, ZOL_PARAM p1, ZOL_PARAM p2, ZOL_PARAM p3) {
    HDOC doc = (HDOC)p1;
    char name[200] = "";
    char text[300];
    (void)p2;
    (void)p3;
    if (event != ZOL_EV_DOC_BEFORE_CLOSE || !Zol_IsModified(doc)) return 0;
    Zol_GetDocumentName(doc, name, sizeof name);
    sprintf(text, "Keep Unsaved: %s has unsaved changes and stays open. Save it or undo the changes first.", name);
    Zol_StatusBarMsg(text);
    return 1;
}
