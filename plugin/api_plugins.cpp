// Services for plug-ins (XPZ_): commands, keys, scripts, windows and the modules.
#include <algorithm>
#include <string>

#include "config/keymap.h"
#include "engine/document_list.h"
#include "platform/paths.h"
#include "plugin/api_guard.h"
#include "engine/shell.h"
#include "plugin/plugin_manager.h"
#include "plugin/plugin_windows.h"
#include "script/run_script.h"

using namespace zol;

namespace {

constexpr int kMaxDockPosition = 4;
constexpr uint32_t kRgbMask = 0xFFFFFF;
constexpr const char* kPlugInFolder = "PlugIns";

std::string orEmpty(const char* s) { return s ? s : ""; }

// Modifier bits of the shortcut functions.
constexpr int kModShift = 1, kModCtrl = 2, kModAlt = 4;

// The key word of a virtual key with modifiers; 0 when either is out of range.
uint16_t keyWordOf(int virtualKey, int modifiers) {
    if (virtualKey < 1 || virtualKey > 0xFF || modifiers < 0 || modifiers > (kModShift | kModCtrl | kModAlt)) return 0;
    uint16_t key = static_cast<uint16_t>(kVirtualKey | virtualKey);
    if (modifiers & kModShift) key |= kShiftKey;
    if (modifiers & kModCtrl) key |= kCtrlKey;
    if (modifiers & kModAlt) key |= kAltKey;
    return key;
}

}  // namespace

int ZOLAPI XPZ_AddCommand(ZOL_MODULE module, int itemId, const char* name, const char* menuText,
                          const char* description, int /*flags*/) {
    return guarded<int>(0, [&] {
        return addPlugInCommand(module, itemId, orEmpty(name), orEmpty(menuText), orEmpty(description));
    });
}

BOOL ZOLAPI XPZ_KeyMappingDlg(ZOL_WND /*owner*/, int /*reserved1*/, int /*reserved2*/) { return 0; }

BOOL ZOLAPI XPZ_IsScriptRunning(void) { return isScriptRunning(); }

// Scripts run only once the application stands: the desktop makes its main window
// before that, the headless runner has none at all.
BOOL ZOLAPI XPZ_ExecScript(const char* path, const char* arguments) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!path || !*path || isScriptRunning() || !documentList()) return 0;
        const std::string script = path;
        const ScriptRunResult r = runScript(script, splitArgumentLine(arguments ? arguments : ""),
                                            fileNamePart(script), ScriptStarter::PlugIn);
        return !r.refused;
    });
}

BOOL ZOLAPI XPZ_AddViewToWorkspace(ZOL_MODULE module, ZOL_WND view, const char* title, int /*image*/,
                                   ZOL_PARAM /*data*/) {
    return guarded<BOOL>(0, [&] {
        PlugInWindow w;
        w.module = module;
        w.handle = view;
        w.title = orEmpty(title);
        return addPlugInWindow(w) != 0;
    });
}

BOOL ZOLAPI XPZ_RemoveViewFromWorkspace(ZOL_WND view) {
    return guarded<BOOL>(0, [&] { return view && removePlugInWindow(view); });
}

ZOL_WND ZOLAPI XPZ_CreateDockableWindow(const ZOL_DOCKABLE_WINDOW* d) {
    return guarded<ZOL_WND>(0, [&]() -> ZOL_WND {
        if (!d || !d->module || !d->window || !d->title) return 0;
        if (d->dockPosition < 0 || d->dockPosition > kMaxDockPosition) return 0;
        if (d->allowedPositions < 0 || d->allowedPositions > kMaxDockPosition) return 0;
        PlugInWindow w;
        w.module = d->module;
        w.handle = d->window;
        w.dockable = true;
        w.title = d->title;
        w.dockPosition = d->dockPosition;
        w.allowedPositions = d->allowedPositions;
        w.width = std::max(0, d->width);
        w.height = std::max(0, d->height);
        return addPlugInWindow(w);
    });
}

BOOL ZOLAPI XPZ_DestroyDockableWindow(ZOL_WND window) {
    return guarded<BOOL>(0, [&] { return window && removePlugInWindow(window); });
}

BOOL ZOLAPI XPZ_RedrawWindow(ZOL_WND window) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!window || !findPlugInWindow(window)) return 0;
        shell().redrawPlugInWindow(window);
        return 1;
    });
}

void ZOLAPI XPZ_CanvasFill(void* canvas, int x, int y, int width, int height, long rgb) {
    guardedVoid([&] {
        if (PlugInCanvas* c = activeCanvas(canvas); c && width > 0 && height > 0)
            c->fill(x, y, width, height, static_cast<uint32_t>(rgb) & kRgbMask);
    });
}

int ZOLAPI XPZ_CanvasText(void* canvas, int x, int y, const char* text, long rgb) {
    return guarded<int>(0, [&] {
        PlugInCanvas* c = activeCanvas(canvas);
        return c && text ? c->text(x, y, text, static_cast<uint32_t>(rgb) & kRgbMask) : 0;
    });
}

int ZOLAPI XPZ_CanvasLineHeight(void* canvas) {
    return guarded<int>(0, [&] {
        PlugInCanvas* c = activeCanvas(canvas);
        return c ? c->lineHeight() : 0;
    });
}

long ZOLAPI XPZ_CanvasColor(void* canvas, int which) {
    return guarded<long>(0, [&] {
        PlugInCanvas* c = activeCanvas(canvas);
        return c ? static_cast<long>(c->color(which)) : 0L;
    });
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

BOOL ZOLAPI XPZ_CanAddShortcutKey(int virtualKey, int modifiers, int prefixTable, int /*reserved*/) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        const uint16_t key = keyWordOf(virtualKey, modifiers);
        if (!key || prefixTable < 0 || prefixTable >= kKeyTables) return 0;
        const auto& table = keyMap().tables[static_cast<size_t>(prefixTable)];
        uint16_t bound = 0;
        for (const KeyMapEntry& e : table)
            if (e.key == key) {
                bound = e.command;
                break;
            }
        // A prefix key stays a prefix key.
        if (prefixTableOf(bound)) return 0;
        return bound || table.size() < keyTableCapacity(prefixTable);
    });
}

int ZOLAPI XPZ_IsShortcutKeyAlreadyMapped(void* map, int virtualKey, int modifiers, int prefixTable) {
    return guarded<int>(0, [&]() -> int {
        const uint16_t key = keyWordOf(virtualKey, modifiers);
        if (!map || !key || prefixTable < 0 || prefixTable >= kKeyTables) return 0;
        for (const KeyMapEntry& e : keyMap().tables[static_cast<size_t>(prefixTable)])
            if (e.key == key) return e.command;
        return 0;
    });
}

BOOL ZOLAPI XPZ_AddShortcutKey(ZOL_MODULE module, int command, int virtualKey, int modifiers, int prefixTable,
                               int reserved) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        const PlugInCommand* c = findPlugInCommand(command);
        if (!c || c->module != module || !XPZ_CanAddShortcutKey(virtualKey, modifiers, prefixTable, reserved))
            return 0;
        // A plug-in's keys come back with it on every start; they are no change to save.
        const bool changed = keyMapChanged();
        const bool ok = bindKey(keyMap(), prefixTable, keyWordOf(virtualKey, modifiers), static_cast<uint16_t>(command));
        setKeyMapChanged(changed);
        return ok;
    });
}

BOOL ZOLAPI XPZ_RemoveShortcutKey(int virtualKey, int modifiers) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        const uint16_t key = keyWordOf(virtualKey, modifiers);
        const int bound = key ? XPZ_IsShortcutKeyAlreadyMapped(&keyMap(), virtualKey, modifiers, 0) : 0;
        if (bound < kFirstPlugInCommand) return 0;  // only plug-in bindings
        const bool changed = keyMapChanged();
        const bool ok = unbindKey(keyMap(), 0, key);
        setKeyMapChanged(changed);
        return ok;
    });
}
