// Services for plug-ins (XPZ_): commands, keys, scripts, windows and the modules.
#include <string>

#include "engine/document_list.h"
#include "platform/paths.h"
#include "plugin/api_guard.h"
#include "plugin/plugin_manager.h"

using namespace zol;

namespace {

constexpr int kMaxDockPosition = 4;
constexpr const char* kPlugInFolder = "PlugIns";

std::string orEmpty(const char* s) { return s ? s : ""; }

}  // namespace

int ZOLAPI XPZ_AddCommand(ZOL_MODULE module, int itemId, const char* name, const char* menuText,
                          const char* description, int /*flags*/) {
    return guarded<int>(0, [&] {
        return addPlugInCommand(module, itemId, orEmpty(name), orEmpty(menuText), orEmpty(description));
    });
}

BOOL ZOLAPI XPZ_KeyMappingDlg(ZOL_WND /*owner*/, int /*reserved1*/, int /*reserved2*/) { return 0; }

BOOL ZOLAPI XPZ_IsScriptRunning(void) { return 0; }

// Scripts run only once the main window exists, and not in this build.
BOOL ZOLAPI XPZ_ExecScript(const char* path, const char* /*arguments*/) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!path || !documentList() || !documentList()->mainWindow()) return 0;
        return 0;
    });
}

BOOL ZOLAPI XPZ_AddViewToWorkspace(ZOL_MODULE module, ZOL_WND view, const char* title, int /*image*/,
                                   ZOL_PARAM /*data*/) {
    return guarded<BOOL>(0, [&] { return addPlugInWindow(module, view, false, orEmpty(title)) != 0; });
}

BOOL ZOLAPI XPZ_RemoveViewFromWorkspace(ZOL_WND view) {
    return guarded<BOOL>(0, [&] { return view && removePlugInWindow(view); });
}

ZOL_WND ZOLAPI XPZ_CreateDockableWindow(const ZOL_DOCKABLE_WINDOW* d) {
    return guarded<ZOL_WND>(0, [&]() -> ZOL_WND {
        if (!d || !d->module || !d->window || !d->title) return 0;
        if (d->dockPosition < 0 || d->dockPosition > kMaxDockPosition) return 0;
        if (d->allowedPositions < 0 || d->allowedPositions > kMaxDockPosition) return 0;
        return addPlugInWindow(d->module, d->window, true, d->title);
    });
}

BOOL ZOLAPI XPZ_DestroyDockableWindow(ZOL_WND window) {
    return guarded<BOOL>(0, [&] { return window && removePlugInWindow(window); });
}

ZOL_MODULE ZOLAPI XPZ_GetPlugInInstance(const char* name, int /*reserved*/) {
    return guarded<ZOL_MODULE>(nullptr, [&]() -> ZOL_MODULE {
        if (!name) return nullptr;
        const PlugInRecord* r = findPlugInByName(name);
        return r ? r->module : nullptr;
    });
}

BOOL ZOLAPI XPZ_IsPlugInLoaded(const char* name, int reserved) { return XPZ_GetPlugInInstance(name, reserved) != nullptr; }

ZOL_MODULE ZOLAPI XPZ_GetProgramInstance(void) { return programLibrary(); }

BOOL ZOLAPI XPZ_GetPlugInName(ZOL_MODULE module, char* buffer, int size) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer || size < 1) return 0;
        buffer[0] = '\0';
        const PlugInRecord* r = findPlugIn(module);
        if (!r) return 0;
        copyOut(buffer, size, r->name);
        return 1;
    });
}

BOOL ZOLAPI XPZ_LoadPlugIn(const char* path) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!path || !*path) return 0;
        std::string p = path;
        // A bare module name is looked for where discovery looks.
        if (p.find_first_of("/\\") == std::string::npos) p = joinPath(joinPath(homeDir(), kPlugInFolder), p);
        return loadPlugIn(p, true);
    });
}

BOOL ZOLAPI XPZ_UnloadPlugIn(ZOL_MODULE module) {
    return guarded<BOOL>(0, [&] { return unloadPlugIn(module); });
}

BOOL ZOLAPI XPZ_EntryPoint(int reason, ZOL_PARAM /*reserved*/) { return reason == 1 || reason == 2; }

BOOL ZOLAPI XPZ_CanAddShortcutKey(int, int, int, int) { return 0; }
int ZOLAPI XPZ_IsShortcutKeyAlreadyMapped(void*, int, int, int) { return 0; }
BOOL ZOLAPI XPZ_AddShortcutKey(ZOL_MODULE, int, int, int, int, int) { return 0; }
BOOL ZOLAPI XPZ_RemoveShortcutKey(int, int) { return 0; }
