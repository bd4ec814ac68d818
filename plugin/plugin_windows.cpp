#include "plugin/plugin_windows.h"

#include "engine/editor_events.h"
#include "plugin/plugin_manager.h"
#include "plugin/zolder_api.h"

namespace zol {
namespace {

static_assert(ZOL_VIEW_CONTEXT_MENU == kViewContextMenu && ZOL_VIEW_DOUBLE_CLICK == kViewDoubleClick,
              "zolder_api.h tells plug-ins what a window notifies");

using XppOnPaintWindow = void (*)(intptr_t window, void* canvas, int width, int height);
using XppOnWindowMouse = void (*)(intptr_t window, int event, int x, int y);

// Only the canvas of the paint under way draws: a module that keeps the pointer for
// later gets nothing but neutral answers from it.
PlugInCanvas* painting = nullptr;

template <class Fn>
Fn windowEntry(intptr_t handle, const char* name) {
    const PlugInWindow* w = findPlugInWindow(handle);
    if (!w || !findPlugIn(w->module)) return nullptr;
    return reinterpret_cast<Fn>(librarySymbol(w->module, name));
}

}  // namespace

bool paintPlugInWindow(intptr_t handle, PlugInCanvas& canvas, int width, int height) {
    auto paint = windowEntry<XppOnPaintWindow>(handle, "XPP_OnPaintWindow");
    if (!paint) return false;
    PlugInCanvas* outer = painting;
    painting = &canvas;
    paint(handle, &canvas, width, height);
    painting = outer;
    return true;
}

bool plugInWindowMouse(intptr_t handle, int event, int x, int y) {
    auto mouse = windowEntry<XppOnWindowMouse>(handle, "XPP_OnWindowMouse");
    if (!mouse) return false;
    mouse(handle, event, x, y);
    return true;
}

PlugInCanvas* activeCanvas(const void* canvas) {
    return canvas && canvas == painting ? painting : nullptr;
}

}  // namespace zol
