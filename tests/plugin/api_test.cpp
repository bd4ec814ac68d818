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

TEST_F(Api, NullAndStaleHandlesGetNeutralAnswers) {
    char buf[16] = "x";
    int col = 9, line = 9;
    EXPECT_EQ(Zol_GetNumberOfLines(nullptr), 0);
    EXPECT_EQ(Zol_GetLine(nullptr, 1, buf, sizeof buf), 0);
    EXPECT_STREQ(buf, "");
    EXPECT_EQ(Zol_GetLineLen(nullptr, 1, 0), -1);
    EXPECT_EQ(Zol_InsertText(nullptr, "a"), 0);
    EXPECT_EQ(Zol_EdCmd(nullptr, 2, 'a'), 0);
    EXPECT_EQ(Zol_GetText(nullptr, 1, 1, 1, 1), nullptr);
    EXPECT_EQ(Zol_GetSelection(nullptr), nullptr);
    EXPECT_EQ(Zol_CloseDocument(nullptr), 1);
    EXPECT_EQ(Zol_IsModified(nullptr), 0);
    EXPECT_EQ(Zol_GetSelMode(nullptr), 0);
    Zol_GetCursorPos(nullptr, &col, &line);
    EXPECT_EQ(col, 1);
    EXPECT_EQ(line, 1);
    Zol_GetWndScrollPos(nullptr, &col, &line);
    EXPECT_EQ(col + line, 0);
    EXPECT_EQ(Zol_GetSelBeginPos(nullptr, &col, &line), 0);
    EXPECT_EQ(col + line, 0);
    Zol_GetCursorPos(nullptr, nullptr, nullptr);  // null out-pointers are skipped

    // A handle of a document that is gone is no document at all.
    HDOC gone = Zol_NewDocument();
    Zol_DestroyDocument(gone);
    EXPECT_EQ(Zol_IsDocument(gone), 0);
    EXPECT_EQ(Zol_InsertText(gone, "a"), 0);
    EXPECT_EQ(Zol_GetActiveDocument(), doc_);
}

TEST_F(Api, BuffersAreCutAndTerminated) {
    ASSERT_TRUE(Zol_InsertText(doc_, "hello world\nsecond"));
    char buf[6];
    EXPECT_EQ(Zol_GetLine(doc_, 1, buf, sizeof buf), 5);
    EXPECT_STREQ(buf, "hello");
    EXPECT_EQ(Zol_GetLine(doc_, 3, buf, sizeof buf), 0);
    EXPECT_STREQ(buf, "");
    EXPECT_EQ(Zol_GetLine(doc_, 0, buf, sizeof buf), 0);

    // An untitled document has no file name; size 1 is too small for any answer.
    EXPECT_EQ(Zol_GetFileName(doc_, buf, sizeof buf), -1);
    std::strcpy(buf, "junk");
    EXPECT_EQ(Zol_GetFileName(doc_, buf, 1), 0);
    EXPECT_STREQ(buf, "");
    EXPECT_EQ(Zol_GetDocumentName(doc_, buf, 1), 0);

    const std::string path = home_ + "name.cpp";
    Zol_SetFileName(doc_, path.c_str());
    char name[256];
    EXPECT_EQ(Zol_GetFileName(doc_, name, sizeof name), 1);
    EXPECT_EQ(std::string(name), path);
    EXPECT_EQ(Zol_GetFileExtension(doc_, buf, sizeof buf), 1);
    EXPECT_STREQ(buf, "cpp");
    EXPECT_EQ(Zol_GetDocumentName(doc_, buf, sizeof buf), 1);
    EXPECT_STREQ(buf, "name.");
    Zol_SetFileName(doc_, (home_ + "Makefile").c_str());
    EXPECT_EQ(Zol_GetFileExtension(doc_, buf, sizeof buf), -1);

    EXPECT_EQ(Zol_GetTextEditorDir(buf, sizeof buf), 1);
    EXPECT_EQ(std::strlen(buf), sizeof buf - 1);
    EXPECT_EQ(Zol_GetTextEditorDir(nullptr, 10), 0);
}

TEST_F(Api, PositionsAreOneBasedWithTheColumnFirst) {
    ASSERT_TRUE(Zol_InsertText(doc_, "\tab\nline two\nthree"));
    Zol_SetCursorPos(doc_, 3, 1, FALSE);  // inside the tab: its start
    int col = 0, line = 0;
    Zol_GetCursorPos(doc_, &col, &line);
    EXPECT_EQ(col, 1);
    EXPECT_EQ(line, 1);
    Zol_SetCursorPosExactly(doc_, 3, 1, FALSE);
    Zol_GetCursorPos(doc_, &col, &line);
    EXPECT_EQ(col, 3);
    Zol_SetCursorPos(doc_, 0, 2, FALSE);  // ignored
    Zol_GetCursorPos(doc_, &col, &line);
    EXPECT_EQ(line, 1);

    // A selection dragged upwards still reports its upper end first.
    Zol_SetCursorPos(doc_, 4, 3, FALSE);
    Zol_SetCursorPos(doc_, 2, 2, TRUE);
    EXPECT_EQ(Zol_GetSelType(doc_), 1);
    EXPECT_EQ(Zol_GetSelBeginPos(doc_, &col, &line), 1);
    EXPECT_EQ(col, 2);
    EXPECT_EQ(line, 2);
    EXPECT_EQ(Zol_GetSelEndPos(doc_, &col, &line), 1);
    EXPECT_EQ(col, 4);
    EXPECT_EQ(line, 3);
    char* sel = Zol_GetSelection(doc_);
    ASSERT_NE(sel, nullptr);
    EXPECT_STREQ(sel, "ine two\r\nthr");
    Zol_MemFree(sel);

    EXPECT_EQ(Zol_GetText(doc_, 0, 1, 2, 1), nullptr);
    char* text = Zol_GetText(doc_, 1, 2, 5, 2);
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text, "line");
    Zol_MemFree(text);
    EXPECT_EQ(Zol_GetLineLen(doc_, 1, 0), 10);  // the tab counts to its stop
    EXPECT_EQ(Zol_GetLineLen(doc_, 1, 1), 3);
    EXPECT_EQ(Zol_GetLineLen(doc_, 4, 0), -1);

    Zol_SetSelMode(doc_, 2);
    EXPECT_EQ(Zol_GetSelMode(doc_), 2);
    Zol_SetSelMode(doc_, 7);
    EXPECT_EQ(Zol_GetSelMode(doc_), 2);
    Zol_SetSelMode(doc_, 1);
    EXPECT_EQ(Zol_GetSelMode(doc_), 1);
}

TEST_F(Api, ReadOnlyDocumentsRefuseChanges) {
    ASSERT_TRUE(Zol_InsertText(doc_, "keep"));
    Zol_SetReadOnly(doc_, TRUE);
    EXPECT_EQ(Zol_InsertText(doc_, "x"), 0);
    EXPECT_EQ(Zol_SetLine(doc_, 1, "y"), 0);
    Zol_EditorCommand(doc_, 2, 'z');
    EXPECT_EQ(Zol_ReadFile(doc_, (home_ + "any").c_str()), 0);
    EXPECT_EQ(Zol_Replace(doc_, "keep", "lose", 1, 1, 0, 0, 0, 1), -1);
    char buf[16];
    Zol_GetLine(doc_, 1, buf, sizeof buf);
    EXPECT_STREQ(buf, "keep");
}

TEST_F(Api, OptionSettersKeepTheirRanges) {
    Zol_SetTabSize(1);
    EXPECT_EQ(Zol_GetTabSize(), 2);
    Zol_SetTabSize(50);
    EXPECT_EQ(Zol_GetTabSize(), 20);
    Zol_SetTabSize(8);
    const int col = Zol_GetWordWrapCol();
    Zol_SetWordWrapCol(3200);
    EXPECT_EQ(Zol_GetWordWrapCol(), col);
    Zol_SetWordWrapCol(3199);
    EXPECT_EQ(Zol_GetWordWrapCol(), 3199);
    Zol_SetWordWrapCol(col);
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

TEST_F(Api, StringHelpersCountScreenColumns) {
    EXPECT_EQ(Zol_StrLen("a\tb"), 9);
    EXPECT_EQ(Zol_StrLenTrim("ab \t "), 2);
    EXPECT_EQ(Zol_StrLen(nullptr), 0);
    char s[] = "a\tbc";
    EXPECT_EQ(Zol_GetCharColumnPos(s, s + 2), 9);
    EXPECT_EQ(Zol_GetCharColumnPos(nullptr, s), 1);
    EXPECT_EQ(Zol_GetCharPtr(s, 10), s + 3);
    EXPECT_EQ(Zol_GetCharPtr(s, 0), nullptr);
    char up[] = "MiXed";
    EXPECT_STREQ(Zol_StrUpr(up), "MIXED");
    EXPECT_STREQ(Zol_StrLwr(up), "mixed");
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
    EXPECT_EQ(Zol_GetDocWndHandle(doc_), 0);
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
