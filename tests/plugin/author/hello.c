#include <stdio.h>
#include <string.h>

#include <zolder_api.h>

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    (void)module;
    (void)mainWindow;
    return version > 0;
}

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorEvent(int event, ZOL_PARAM p1, ZOL_PARAM p2, ZOL_PARAM p3) {
    char line[64] = "";
    (void)p1;
    (void)p2;
    (void)p3;
    if (event == ZOL_EV_STARTED) {
        Zol_GetLine(Zol_GetActiveDocument(), 1, line, sizeof line);
        printf("hello: %d document(s), first line \"%s\"\n", Zol_GetNumberOfDocuments(), line);
        fflush(stdout);
    }
    return 0;
}
