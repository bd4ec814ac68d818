/* Example plug-in: a dockable window "Documents" that lists the open documents, the
 * active one highlighted; a click brings a document to the front. It shows how a
 * plug-in makes a window and paints it: Zolder calls XPP_OnPaintWindow whenever the
 * window needs painting, and the plug-in asks for that with XPZ_RedrawWindow when what
 * it shows has changed. */
#include <string.h>

#include "zolder_api.h"

/* The window's number is this variable's address: no other window can have it. */
static int g_window;
#define WINDOW ((ZOL_WND)&g_window)
#define MARGIN 4
#define ROW_GAP 2
/* Painting measures the rows; a click finds its row by the same measure. */
static int g_rowHeight = 16;

static HDOC documentAt(int index) {
    HDOC doc = Zol_GetFirstDocument();
    while (doc && index-- > 0) doc = Zol_GetNextDocument(doc);
    return doc;
}

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    ZOL_DOCKABLE_WINDOW dock;
    (void)mainWindow;
    (void)version;
    dock.module = module;
    dock.window = WINDOW;
    dock.title = "Documents";
    dock.dockPosition = ZOL_DOCK_LEFT;
    dock.allowedPositions = ZOL_ALLOW_ANY;
    dock.width = 200;
    dock.height = 0;
    dock.data = 0;
    return XPZ_CreateDockableWindow(&dock) != 0;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_GetInformation(int kind, char *buffer) {
    if (kind == ZOL_INFO_NAME) strcpy(buffer, "Documents");
}

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorEvent(int event, ZOL_PARAM p1, ZOL_PARAM p2, ZOL_PARAM p3) {
    (void)p1;
    (void)p2;
    (void)p3;
    switch (event) {
    case ZOL_EV_DOC_CREATED:
    case ZOL_EV_DOC_OPENED:
    case ZOL_EV_DOC_FILE_NAMED:
    case ZOL_EV_DOC_DESTROYING:
    case ZOL_EV_DOC_ACTIVATED:
        /* Painting comes later, once the change is complete. */
        XPZ_RedrawWindow(WINDOW);
        break;
    default:
        break;
    }
    return 0;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_OnPaintWindow(ZOL_WND window, void *canvas, int width, int height) {
    long text = XPZ_CanvasColor(canvas, ZOL_COLOR_TEXT);
    long highlight = XPZ_CanvasColor(canvas, ZOL_COLOR_HIGHLIGHT);
    long highlightText = XPZ_CanvasColor(canvas, ZOL_COLOR_HIGHLIGHT_TEXT);
    HDOC active = Zol_GetActiveDocument();
    HDOC doc;
    char name[260];
    int y = MARGIN;
    (void)window;
    g_rowHeight = XPZ_CanvasLineHeight(canvas) + ROW_GAP;
    XPZ_CanvasFill(canvas, 0, 0, width, height, XPZ_CanvasColor(canvas, ZOL_COLOR_WINDOW));
    for (doc = Zol_GetFirstDocument(); doc && y < height; doc = Zol_GetNextDocument(doc)) {
        Zol_GetDocumentName(doc, name, sizeof name);
        if (doc == active) XPZ_CanvasFill(canvas, 0, y, width, g_rowHeight, highlight);
        XPZ_CanvasText(canvas, MARGIN, y + ROW_GAP / 2, name, doc == active ? highlightText : text);
        y += g_rowHeight;
    }
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_OnWindowMouse(ZOL_WND window, int event, int x, int y) {
    HDOC doc;
    (void)window;
    (void)x;
    if (event != ZOL_MOUSE_CLICK || y < MARGIN) return;
    doc = documentAt((y - MARGIN) / g_rowHeight);
    if (doc) Zol_SetActiveDocument(doc);
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_About(ZOL_WND dialog) {
    (void)dialog;
    Zol_ReadMeStringDlg("About Documents",
                        "Documents lists the open documents in a window of its own.\n"
                        "Click a name to bring that document to the front.",
                        0, 0);
}
