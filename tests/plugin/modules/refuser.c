/* Refuses to start, after adding a command, a menu item and a dockable window. */
#include "plugin/zolder_api.h"

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    ZOL_DOCKABLE_WINDOW dock;
    (void)mainWindow;
    (void)version;
    XPZ_AddCommand(module, 1, "RefuserCommand", "&Refuser", "Never runs", 0);
    dock.module = module;
    dock.window = 77;
    dock.title = "Refuser";
    dock.dockPosition = 1;
    dock.allowedPositions = 4;
    dock.width = 100;
    dock.height = 100;
    dock.data = 0;
    XPZ_CreateDockableWindow(&dock);
    return FALSE;
}
