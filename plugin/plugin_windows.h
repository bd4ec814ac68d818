// The windows plug-ins paint themselves: the desktop shell gives each dockable window
// and workspace view an area, and has its module paint it onto a canvas and hear the
// clicks in it.
#pragma once
#include <cstdint>
#include <string_view>

namespace zol {

// What the shell draws with while a module paints. Coordinates are pixels of the
// window, colours 0xRRGGBB, text Windows-1252.
class PlugInCanvas {
public:
    virtual ~PlugInCanvas() = default;
    virtual void fill(int x, int y, int width, int height, uint32_t rgb) = 0;
    // Returns the width of the text drawn.
    virtual int text(int x, int y, std::string_view text, uint32_t rgb) = 0;
    virtual int lineHeight() const = 0;
    // One of the ZOL_COLOR_ values; 0 for any other.
    virtual uint32_t color(int which) const = 0;
};

// Has the window's module paint it (XPP_OnPaintWindow) onto canvas; false when the
// window or its module is gone, or the module does not paint.
bool paintPlugInWindow(intptr_t handle, PlugInCanvas& canvas, int width, int height);
// A ZOL_MOUSE_ event at x, y for the window's module (XPP_OnWindowMouse).
bool plugInWindowMouse(intptr_t handle, int event, int x, int y);
// The canvas a module is painting on right now, if the pointer it hands back is it.
PlugInCanvas* activeCanvas(const void* canvas);

}  // namespace zol
