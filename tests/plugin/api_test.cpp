// What only a plug-in reaches of the interface: raw null pointers, cursor and option
// calls that the script tests (tests/script/editor/, through the very same functions)
// leave out, the scroll place without a window, and dockable windows.
#include <cstring>

#include "engine/options.h"
#include "plugin/zolder_api.h"
#include "tests/plugin/plugin_fixture.h"

namespace zol {
namespace {

class Api : public test::PlugInTest {
protected:
    void SetUp() override {
        PlugInTest::SetUp();
        start();
        doc_ = newDocument(app_);
    }
    HDOC doc_ = nullptr;
};

TEST_F(Api, NullPointersAndGoneHandles) {
    int col = 9, line = 9;
    Zol_GetWndScrollPos(nullptr, &col, &line);
    EXPECT_EQ(col + line, 0);
    EXPECT_EQ(Zol_GetSelMode(nullptr), 0);
    Zol_GetCursorPos(nullptr, nullptr, nullptr);  // null out-pointers are skipped
    EXPECT_EQ(Zol_GetTextEditorDir(nullptr, 10), 0);
    HDOC gone = Zol_NewDocument();
    Zol_DestroyDocument(gone);
    EXPECT_EQ(Zol_GetActiveDocument(), doc_);
}

TEST_F(Api, BuffersAreCutAndTerminated) {
    char buf[6];
    ASSERT_TRUE(Zol_InsertText(doc_, "hello"));
    EXPECT_EQ(Zol_GetLine(doc_, 0, buf, sizeof buf), 0);
    Zol_SetFileName(doc_, (home_ + "name.cpp").c_str());
    EXPECT_EQ(Zol_GetDocumentName(doc_, buf, sizeof buf), 1);
    EXPECT_STREQ(buf, "name.");
    Zol_SetFileName(doc_, (home_ + "Makefile").c_str());
    EXPECT_EQ(Zol_GetFileExtension(doc_, buf, sizeof buf), -1);
    EXPECT_EQ(Zol_GetTextEditorDir(buf, sizeof buf), 1);
    EXPECT_EQ(std::strlen(buf), sizeof buf - 1);
}

TEST_F(Api, CursorCallsTheScriptTestsLeaveOut) {
    ASSERT_TRUE(Zol_InsertText(doc_, "\tab\nline two"));
    int col = 0, line = 0;
    Zol_SetCursorPos(doc_, 3, 1, FALSE);  // inside the tab: its start
    Zol_GetCursorPos(doc_, &col, &line);
    EXPECT_EQ(col, 1);
    Zol_SetCursorPosExactly(doc_, 3, 1, FALSE);
    Zol_GetCursorPos(doc_, &col, &line);
    EXPECT_EQ(col, 3);
    Zol_SetCursorPos(doc_, 0, 2, FALSE);  // ignored
    Zol_GetCursorPos(doc_, &col, &line);
    EXPECT_EQ(line, 1);
    Zol_SetSelMode(doc_, 2);
    Zol_SetSelMode(doc_, 7);
    EXPECT_EQ(Zol_GetSelMode(doc_), 2);
    Zol_SetReadOnly(doc_, TRUE);
    EXPECT_EQ(Zol_ReadFile(doc_, (home_ + "any").c_str()), 0);
}

TEST_F(Api, OptionSettersKeepTheirRanges) {
    Zol_SetWordWrapMethod(4);
    EXPECT_GE(Zol_GetWordWrapMethod(), 1);
    EXPECT_LE(Zol_GetWordWrapMethod(), 3);
    Zol_SetBlockIndent(0);
    EXPECT_EQ(Zol_GetBlockIndent(), 1);
    Zol_SetBlockIndent(99);
    EXPECT_EQ(Zol_GetBlockIndent(), 20);
    Zol_SetBlockIndent(1);
    Zol_SetCursorThroughtTabs(FALSE);
    EXPECT_FALSE(options().cursorThroughTabs);
    Zol_SetCursorThroughtTabs(5);
    EXPECT_EQ(Zol_IsCursorThroughtTabs(), 1);
    EXPECT_EQ(Zol_GetMaxLineLen(), 3200);
}

// Without a window the scroll place is kept per document, so that what is set reads
// back as in the desktop editor, and it goes with the document.
TEST_F(Api, ScrollPositionRoundTripsWithoutAWindow) {
    ASSERT_TRUE(Zol_InsertText(doc_, "1\n2\n3\n4\n5\n6\n7\n8\n9\n10"));
    struct Row {
        const char* name;
        int setCol, setLine;
        int col, line;
    };
    const Row rows[] = {{"first place", 1, 1, 1, 1},
                        {"column and line", 40, 7, 40, 7},
                        {"past the last line", 3, 99, 3, 10},
                        {"past the widest column", 5000, 2, ZOL_MAX_LINE_LEN, 2},
                        {"column 0 is ignored", 0, 4, ZOL_MAX_LINE_LEN, 2},
                        {"line 0 is ignored", 4, 0, ZOL_MAX_LINE_LEN, 2}};
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        Zol_SetWndScrollPos(doc_, r.setCol, r.setLine);
        int col = 0, line = 0;
        Zol_GetWndScrollPos(doc_, &col, &line);
        EXPECT_EQ(col, r.col);
        EXPECT_EQ(line, r.line);
    }
    Zol_LockUpdate(doc_);  // nothing to hold back, nothing kept
    Zol_UnlockUpdate(doc_);
    Zol_UnlockUpdate(doc_);

    Zol_DestroyDocument(doc_);
    HDOC next = Zol_NewDocument();
    int col = 0, line = 0;
    Zol_GetWndScrollPos(next, &col, &line);
    EXPECT_EQ(col, 1);
    EXPECT_EQ(line, 1);
}

TEST_F(Api, DockableWindowsNeedTheirLeadingFields) {
    install("recorder.zop", "rec.zop");
    ASSERT_EQ(XPZ_LoadPlugIn("rec.zop"), 1);
    ZOL_MODULE module = XPZ_GetPlugInInstance("Recorder", 0);
    ASSERT_NE(module, nullptr);
    ZOL_DOCKABLE_WINDOW w{module, 42, "Tree", 2, 4, 10, 10, 0};
    EXPECT_EQ(XPZ_CreateDockableWindow(&w), 42);
    EXPECT_EQ(XPZ_CreateDockableWindow(&w), 0) << "a window number is the window's alone";
    EXPECT_EQ(XPZ_RedrawWindow(42), 1);
    EXPECT_EQ(XPZ_RedrawWindow(43), 0);
    w.dockPosition = 5;
    EXPECT_EQ(XPZ_CreateDockableWindow(&w), 0);
    w.dockPosition = 0;
    w.title = nullptr;
    EXPECT_EQ(XPZ_CreateDockableWindow(&w), 0);
    EXPECT_EQ(XPZ_DestroyDockableWindow(42), 1);
    EXPECT_EQ(XPZ_DestroyDockableWindow(0), 0);
    // Drawing outside a paint draws nothing.
    int notACanvas = 0;
    XPZ_CanvasFill(&notACanvas, 0, 0, 5, 5, 0);
    EXPECT_EQ(XPZ_CanvasText(&notACanvas, 0, 0, "x", 0), 0);
    EXPECT_EQ(XPZ_CanvasLineHeight(nullptr), 0);
    char name[8];
    EXPECT_EQ(XPZ_GetPlugInName(module, name, sizeof name), 1);
    EXPECT_STREQ(name, "Recorde");
    EXPECT_NE(XPZ_GetProgramInstance(), nullptr);
}

}  // namespace
}  // namespace zol
