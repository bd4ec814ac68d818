// Scripts in the desktop: the console window and its grid, a run that never freezes the
// editor, Stop, editor calls that reach the documents, and what closing does mid-run.
#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <string>

#include "app/qt/console_grid.h"
#include "app/qt/script_console.h"
#include "app/qt/script_host.h"
#include "app/qt/menus.h"
#include "plugin/zolder_api.h"
#include "script/run_script.h"
#include "tests/qt/qt_fixture.h"

namespace zol::qttest {
namespace {

// ---- the grid ----

struct GridCase {
    const char* name;
    void (*act)(ConsoleGrid& g);
    int x, y;                  // the cursor afterwards, 1-based
    std::string row1;          // the screen's first row, trailing blanks dropped
    size_t history;            // lines above the screen
};

std::string rowText(ConsoleGrid& g, int r) {
    std::string s = g.screenLine(r);
    s.erase(s.find_last_not_of(' ') + 1);
    return s;
}

const std::string fullLine(kConsoleColumns, 'x');

TEST(ConsoleGridTest, WritesWrapsScrollsAndMoves) {
    const GridCase cases[] = {
        {"text and line end", [](ConsoleGrid& g) { g.write("ab\ncd"); }, 3, 2, "ab", 0},
        {"carriage return overwrites", [](ConsoleGrid& g) { g.write("abc\rX"); }, 2, 1, "Xbc", 0},
        {"backspace steps back only", [](ConsoleGrid& g) { g.write("\b\bab\bX"); }, 3, 1, "aX", 0},
        {"tab to the next stop", [](ConsoleGrid& g) { g.write("a\tb"); }, 10, 1, "a       b", 0},
        {"a full line wraps", [](ConsoleGrid& g) { g.write(fullLine + "y"); }, 2, 2, fullLine, 0},
        {"a full screen scrolls into history",
         [](ConsoleGrid& g) {
             for (int i = 0; i < kConsoleRows + 2; ++i) g.write(std::to_string(i) + "\n");
         },
         1, kConsoleRows, "3", 3},
        {"gotoxy and a position off the screen",
         [](ConsoleGrid& g) {
             g.gotoXY(10, 5);
             g.gotoXY(0, 3);
             g.gotoXY(81, 3);
             g.gotoXY(3, 26);
         },
         10, 5, "", 0},
        {"clear drops history and homes",
         [](ConsoleGrid& g) {
             for (int i = 0; i < 40; ++i) g.write("line\n");
             g.clear();
             g.write("z");
         },
         2, 1, "z", 0},
        {"erasing typed input across a wrap",
         [](ConsoleGrid& g) {
             g.write(fullLine + "q");
             g.eraseBack();
             g.eraseBack();
         },
         80, 1, fullLine.substr(0, 79), 0},
    };
    for (const GridCase& c : cases) {
        ConsoleGrid g;
        c.act(g);
        EXPECT_EQ(g.whereX(), c.x) << c.name;
        EXPECT_EQ(g.whereY(), c.y) << c.name;
        EXPECT_EQ(rowText(g, 0), c.row1) << c.name;
        EXPECT_EQ(g.lines.size() - kConsoleRows, c.history) << c.name;
    }
}

TEST(ConsoleGridTest, MegabytesWithoutLineEndsKeepABoundedHistory) {
    ConsoleGrid g;
    const std::string chunk(4096, 'm');
    for (int i = 0; i < 1024; ++i) g.write(chunk);  // 4 MB
    EXPECT_EQ(g.lines.size(), kConsoleHistory + kConsoleRows);
    for (const std::string& l : g.lines) ASSERT_EQ(l.size(), static_cast<size_t>(kConsoleColumns));
}

// ---- runs in the desktop ----

class ScriptRunTest : public DesktopTest {
protected:
    TScriptHost& host() { return frame_->scriptHost(); }
    // Starts the script as the Run Script menu does.
    void start(const std::string& name, const std::string& text) {
        path_ = write(name, text).string();
        const ScriptRunResult r = runScript(path_, {}, name, ScriptStarter::User);
        ASSERT_TRUE(r.detached);
        ASSERT_TRUE(QTest::qWaitFor([this] { return host().running(); }, 5000));
    }
    bool waitForEnd() {
        return QTest::qWaitFor([this] { return !host().running(); }, 10000);
    }
    TScriptConsole* waitForConsole(const QString& shows) {
        TScriptConsole* c = nullptr;
        const bool shown =
            QTest::qWaitFor([&] { return (c = host().console()) && c->screenText().contains(shows); }, 5000);
        if (!shown) ADD_FAILURE() << (c ? c->screenText().toStdString() : "no console") << " / "
                                  << host().lastResult().message;
        return shown ? c : nullptr;
    }
    QAction* stopAction() {
        for (QAction* a : frame_->menu("Macros")->actions())
            if (menuAction(a) == "StopScript") return a;
        return nullptr;
    }
    std::string path_;
};

// Closing the console while the script waits in gets ends the run and keeps the document.
TEST_F(ScriptRunTest, PrintsAndReadsThroughItsConsoleUntilItIsClosed) {
    open("notes.txt", "keep\n");
    start("ask.c",
          "#include <stdio.h>\n#include <conio.h>\n#include <editor/doc.h>\n"
          "int main(void) {\n  char name[40];\n  int a, b;\n"
          "  printf(\"Name? \");\n  gets(name);\n  printf(\"Hello, %s (%d,%d)\\n\", name, wherex(), wherey());\n"
          "  a = getch();\n  b = getch();\n  printf(\"key %d\\n\", a * 256 + b);\n"
          "  Zol_InsertText(Zol_GetActiveDocument(), \"before \");\n"
          "  printf(\"Type: \");\n  gets(name);\n  Zol_InsertText(Zol_GetActiveDocument(), name);\n  return 0;\n}\n");
    TScriptConsole* c = waitForConsole(QStringLiteral("Name?"));
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->windowTitle(), QStringLiteral("ask.c"));
    QTest::keyClicks(c, QStringLiteral("Bobx"));
    QTest::keyClick(c, Qt::Key_Backspace);
    QTest::keyClick(c, Qt::Key_Return);
    ASSERT_NE(waitForConsole(QStringLiteral("Hello, Bob (1,2)")), nullptr);
    // A key without a character comes to getch as two reads.
    QTest::keyClick(c, Qt::Key_Up);
    ASSERT_NE(waitForConsole(QStringLiteral("Type:")), nullptr);
    EXPECT_EQ(c->screenText().toStdString(), "Name? Bob\nHello, Bob (1,2)\nkey 57416\nType:");
    QTest::keyClicks(c, QStringLiteral("partial"));
    c->close();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(host().lastResult().error, 98);
    ASSERT_FALSE(boxTexts_.empty());
    EXPECT_EQ(boxTexts_.back(), "ask.c Line 15: Program terminated by user");
    EXPECT_EQ(line(0), "before keep");
    EXPECT_EQ(app_->documents.size(), 1u);
    EXPECT_EQ(host().console(), nullptr);
}

TEST_F(ScriptRunTest, EndlessLoopLeavesTheEditorWorkingUntilStopped) {
    open("doc.txt", "text\n");
    const std::string other = write("other.c", "int main(void) { Zol_NewDocument(); return 0; }\n").string();
    start("loop.c", "int main(void) {\n  long n = 0;\n  while (1)\n    n++;\n  return 0;\n}\n");
    ASSERT_TRUE(stopAction());

    PaintCounter counter;
    view()->viewport()->installEventFilter(&counter);
    view()->setFocus();
    QTest::keyClicks(view(), QStringLiteral("ab"));
    view()->viewport()->update();
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.paints > 0; }, 2000));
    EXPECT_EQ(line(0), "abtext");

    // A second script is refused, from a plug-in and from the menu alike.
    EXPECT_FALSE(XPZ_ExecScript(other.c_str(), ""));
    EXPECT_TRUE(runScript(other, {}, "other.c", ScriptStarter::User).refused);
    frame_->menu("Macros")->aboutToShow();
    EXPECT_TRUE(stopAction()->isEnabled());

    stopAction()->trigger();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(host().lastResult().error, 98);
    ASSERT_FALSE(boxTexts_.empty());
    EXPECT_EQ(boxTexts_.back(), "loop.c Line 4: Program terminated by user");
    EXPECT_EQ(app_->documents.size(), 1u);
    frame_->menu("Macros")->aboutToShow();
    EXPECT_FALSE(stopAction()->isEnabled());
}

// What opened a dialog may hold a document a script's call could close under it.
TEST_F(ScriptRunTest, EditorCallsWaitWhileTheUserIsInADialog) {
    open("grow.txt", "");
    start("grow.c", "#include <editor/doc.h>\nint main(void) {\n  for (;;)\n    Zol_InsertText(Zol_GetActiveDocument(), \"x\");\n}\n");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !line(0).empty(); }, 5000));
    size_t before = 0, after = 0;
    dlgtest::whenModal<QDialog>([&](QDialog* d) {
        before = line(0).size();
        QTest::qWait(150);
        after = line(0).size();
        d->reject();
    });
    QDialog dialog(frame_.get());
    dialog.exec();
    EXPECT_GT(before, 0u);
    EXPECT_EQ(after, before);
    const size_t closed = line(0).size();
    EXPECT_TRUE(QTest::qWaitFor([&] { return line(0).size() > closed; }, 5000));
    host().stop();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(host().lastResult().error, 98);
}

// Notes whether any script console was shown.
class ConsoleWatch : public QObject {
public:
    bool shown = false;
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::Show && qobject_cast<TScriptConsole*>(o)) shown = true;
        return false;
    }
};

TEST_F(ScriptRunTest, EditorCallsReachTheDocumentsAndSilentScriptsOpenNoConsole) {
    Document* first = open("first.txt", "one\ntwo\n");
    ConsoleWatch watch;
    qApp->installEventFilter(&watch);
    start("edit.c",
          "#include <editor/doc.h>\n"
          "int main(void) {\n"
          "  HDOC h = Zol_GetActiveDocument();\n"
          "  Zol_SetCursorPos(h, 1, 2, FALSE);\n"
          "  Zol_InsertText(h, \"2: \");\n"
          "  Zol_NewDocument();\n"
          "  return Zol_GetNumberOfDocuments();\n"
          "}\n");
    ASSERT_TRUE(waitForEnd());
    qApp->removeEventFilter(&watch);
    EXPECT_EQ(host().lastResult().error, 0) << host().lastResult().message;
    EXPECT_EQ(host().lastResult().value, 2);
    EXPECT_FALSE(watch.shown);
    ASSERT_EQ(app_->documents.size(), 2u);
    EXPECT_EQ(lineText(*first, 1), "2: two");
    // The document the script made has its window, and is the active one.
    QTest::qWait(50);
    EXPECT_NE(frame_->viewOf(app_->documents.back().get()), nullptr);
    EXPECT_EQ(doc().lines.count(), 1);
}

TEST_F(ScriptRunTest, ClosingTheMainWindowStopsTheScriptFirst) {
    start("spin.c", "#include <stdio.h>\nint main(void) {\n  printf(\"spinning\");\n  for (;;) ;\n}\n");
    ASSERT_NE(waitForConsole(QStringLiteral("spinning")), nullptr);
    EXPECT_FALSE(frame_->close());
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(host().lastResult().error, 98);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !frame_->isVisible(); }, 2000));
}

// The run's own thread must hold as deep a recursion as the interpreter allows.
TEST_F(ScriptRunTest, DeepRecursionEndsInTheScriptsOwnError) {
    start("deep.c", "int f(int n) { return n ? -f(n - 1) : 0; }\nint main(void) { return f(1000000); }\n");
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(host().lastResult().error, 92);
}

TEST_F(ScriptRunTest, StartUpScriptsRunOneAfterTheOtherOnceTheWindowStands) {
    open("log.txt", "");
    for (const char* name : {"a", "b"})
        write(std::string("script/StartUp/") + name + ".c",
              std::string("#include <editor/doc.h>\nint main(void) {\n  int i;\n  for (i = 0; i < 3; i++)\n"
                          "    Zol_InsertText(Zol_GetActiveDocument(), \"") +
                  name + "\");\n  return 0;\n}\n");
    QSignalSpy ended(&host(), &TScriptHost::runEnded);
    runStartUpScripts();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 2; }, 10000));
    EXPECT_EQ(line(0), "aaabbb");
}

}  // namespace
}  // namespace zol::qttest
