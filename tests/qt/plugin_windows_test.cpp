// Plug-ins in the desktop: their dockable windows and workspace views, the two plug-in
// dialogs, the events the frame and views send them, and the view functions of the
// interface, with the real module tests/plugin/modules/panel.c.
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QMenu>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTreeWidget>

#include "app/qt/dialogs/plugin_dialogs.h"
#include "app/qt/local_text.h"
#include "app/qt/plugin_messages.h"
#include "app/qt/plugin_windows.h"
#include "app/qt/script_host.h"
#include "platform/dynlib.h"
#include "platform/file_io.h"
#include "platform/paths.h"
#include "platform/registry.h"
#include "plugin/script_handles.h"
#include "plugin/zolder_api.h"
#include "script/run_script.h"
#include "tests/qt/qt_fixture.h"

namespace zol::qttest {
namespace {

constexpr const char* kDockKey = "Software\\VEK\\Zolder\\Windows\\PlugIns";
constexpr const char* kPanelRecord = "panel.zop:Panel";

std::string built(const std::string& module) { return std::string(ZOLDER_TEST_MODULES) + "/" + module; }

void settle() {
    for (int i = 0; i < 5; ++i) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

class PlugInWindowsTest : public DesktopTest {
protected:
    void TearDown() override {
        DesktopTest::TearDown();
        plugInManager().enabled = false;
        for (LibraryHandle h : kept_) closeLibrary(h);
    }

    std::string plugIns() const { return (home_ / "PlugIns").string(); }
    std::string installed() const { return plugIns() + "/panel.zop"; }

    // Copies the module into the home and loads it; the test keeps its own reference so
    // that the module's record of what it heard outlives unloading.
    void loadPanel() {
        // Never over a copy that is loaded: its pages are mapped.
        if (!std::filesystem::exists(installed())) std::filesystem::copy_file(built("panel.zop"), installed());
        ASSERT_EQ(loadPlugIn(installed(), true), 1);
        keep();
        settle();
    }
    void keep() {
        lib_ = openLibrary(installed());
        ASSERT_NE(lib_, nullptr);
        kept_.push_back(lib_);
    }
    template <class Fn>
    Fn fn(const char* name) {
        return reinterpret_cast<Fn>(librarySymbol(lib_, name));
    }
    std::string log() { return fn<const char* (*)()>("panel_log")(); }
    intptr_t dockHandle() { return fn<intptr_t (*)()>("panel_dock")(); }
    ZOL_MODULE module() { return XPZ_GetPlugInInstance("Panel Test", 0); }
    QDockWidget* dock() { return frame_->plugInWindows().dockOf(dockHandle()); }
    QStringList plugInMenu() {
        QStringList texts;
        for (QAction* a : frame_->menu("PlugIns")->actions()) texts << a->text();
        return texts;
    }

    // A new frame and application on the same home, as the next run of the program.
    void restart(bool withPlugIns) {
        for (const auto& d : app_->documents) d->modified = false;
        shutDown(*app_);
        frame_.reset();
        app_ = std::make_unique<Application>();
        frame_ = std::make_unique<TMainFrame>(*app_);
        setShell(&frame_->qtShell());
        plugInManager().enabled = withPlugIns;
        startUp(*app_, StartupOptions{home_.string(), {}, {}});
        frame_->applySettings();
        frame_->resize(900, 640);
        frame_->show();
        settle();
    }

    LibraryHandle lib_ = nullptr;
    std::vector<LibraryHandle> kept_;
};

TEST_F(PlugInWindowsTest, DockableWindowShowsFloatsKeepsItsPlaceAndGoesWithItsModule) {
    loadPanel();
    QDockWidget* d = dock();
    ASSERT_NE(d, nullptr);
    EXPECT_TRUE(d->isVisible());
    EXPECT_EQ(d->windowTitle(), "Panel");
    EXPECT_EQ(frame_->dockWidgetArea(d), Qt::RightDockWidgetArea);
    d->widget()->repaint();
    EXPECT_GT(fn<int (*)()>("panel_paints")(), 0);
    EXPECT_TRUE(plugInMenu().contains("Panel")) << plugInMenu().join('|').toStdString();
    EXPECT_TRUE(plugInMenu().contains("&Panel Item"));

    QTest::mouseClick(d->widget(), Qt::LeftButton, {}, QPoint(10, 12));
    EXPECT_NE(log().find("dock1@10,12"), std::string::npos) << log();

    d->setFloating(true);
    d->setGeometry(200, 150, 220, 260);
    settle();
    restart(false);
    ASSERT_EQ(loadPlugIn(installed(), true), 1);
    settle();
    d = dock();
    ASSERT_NE(d, nullptr);
    EXPECT_TRUE(d->isFloating());
    EXPECT_EQ(d->geometry(), QRect(200, 150, 220, 260));

    ASSERT_EQ(XPZ_UnloadPlugIn(module()), 1);
    settle();
    EXPECT_EQ(dock(), nullptr);
    EXPECT_TRUE(frame_->findChildren<QDockWidget*>(QRegularExpression("^PlugIn:")).isEmpty());
    EXPECT_FALSE(plugInMenu().contains("Panel"));
    EXPECT_EQ(frame_->plugInWindows().workspaceTabs()->count(), 0);
    EXPECT_FALSE(frame_->plugInWindows().workspace()->isVisible());
}

TEST_F(PlugInWindowsTest, DamagedPlaceRecordIsReportedAndTheWindowStartsAtItsFirstPlace) {
    struct Row {
        const char* name;
        const char* record;
    };
    const Row rows[] = {{"empty", ""},
                        {"too few fields", "left 0 0 0"},
                        {"unknown side", "middle 0 0 0 100 100 1"},
                        {"negative size", "left 0 0 0 -5 100 1"},
                        {"trailing text", "left 0 10 10 100 100 1 more"}};
    registrySetString(RegistryRoot::CurrentUser, kDockKey, "other.zop:Tree", "left 0 0 0 150 300 1");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        registrySetString(RegistryRoot::CurrentUser, kDockKey, kPanelRecord, row.record);
        loadPanel();
        ASSERT_NE(dock(), nullptr);
        EXPECT_EQ(frame_->dockWidgetArea(dock()), Qt::RightDockWidgetArea);
        EXPECT_FALSE(dock()->isFloating());
        EXPECT_NE(frame_->statusText().toStdString().find("could not be read"), std::string::npos);
        ASSERT_EQ(XPZ_UnloadPlugIn(module()), 1);
        settle();
        EXPECT_EQ(registryGetString(RegistryRoot::CurrentUser, kDockKey, "other.zop:Tree"), "left 0 0 0 150 300 1");
    }
}

TEST_F(PlugInWindowsTest, WorkspaceViewIsATabOfTheWorkspaceDock) {
    loadPanel();
    QTabWidget* tabs = frame_->plugInWindows().workspaceTabs();
    ASSERT_EQ(tabs->count(), 1);
    EXPECT_EQ(tabs->tabText(0), "PanelView");
    EXPECT_TRUE(frame_->plugInWindows().workspace()->isVisible());
    EXPECT_TRUE(plugInMenu().contains(QString::fromLatin1(plgqt::kWorkspaceTitle)));
    ASSERT_EQ(fn<BOOL (*)()>("panel_close_dock")(), 1);
    settle();
    EXPECT_EQ(dock(), nullptr);
    EXPECT_EQ(tabs->count(), 1);
}

TEST_F(PlugInWindowsTest, FrameAndViewEventsReachTheModuleInOrder) {
    std::filesystem::remove_all(plugIns());
    std::filesystem::create_directories(plugIns());
    std::filesystem::copy_file(built("panel.zop"), installed());
    restart(true);
    keep();
    EXPECT_EQ(log().rfind("e10 e50 ", 0), 0u) << log();

    open("a.c", "int word;\n");
    TVekWinEditor* v = view();
    fn<void (*)(int)>("panel_veto")(ZOL_EV_VIEW_NOTIFY);
    QTest::mouseDClick(v->viewport(), Qt::LeftButton, {}, QPoint(v->gutterWidth() + 5 * v->charWidth(), 4));
    EXPECT_FALSE(doc().selExists) << "vetoed";
    QContextMenuEvent keyboardMenu(QContextMenuEvent::Keyboard, QPoint(4, 4), v->mapToGlobal(QPoint(4, 4)));
    QApplication::sendEvent(v, &keyboardMenu);  // vetoed: no menu comes up to wait for
    fn<void (*)(int)>("panel_veto")(0);
    QTest::mouseDClick(v->viewport(), Qt::LeftButton, {}, QPoint(v->gutterWidth() + 5 * v->charWidth(), 4));
    EXPECT_TRUE(doc().selExists);

    frame_->close();
    shutDown(*app_);
    const std::string heard = log();
    size_t at = 0;
    for (const char* event : {"e125.2 ", "e125.1 ", "e125.2 ", "e1 ", "e2 ", "e4 ", "e3 "}) {
        at = heard.find(event, at);
        ASSERT_NE(at, std::string::npos) << event << " in " << heard;
    }
}

TEST_F(PlugInWindowsTest, F1OnAPlugInMenuItemAsksTheModuleForHelp) {
    loadPanel();
    QMenu* menu = frame_->menu("PlugIns");
    menu->popup(QPoint(10, 10));
    settle();
    for (QAction* a : menu->actions())
        if (a->text() == "&Panel Item") menu->setActiveAction(a);
    QTest::keyClick(menu, Qt::Key_F1);
    EXPECT_NE(log().find("menuhelp9"), std::string::npos) << log();
    menu->close();
}

TEST_F(PlugInWindowsTest, AboutPlugInsOffersWhatTheModuleExports) {
    loadPanel();
    TAboutPlugInsDlg dlg(frame_.get());
    auto* list = dlgtest::child<QTreeWidget>(&dlg, "plugIns");
    ASSERT_EQ(list->topLevelItemCount(), 1);
    EXPECT_EQ(list->topLevelItem(0)->text(0), "Panel Test");
    EXPECT_EQ(list->topLevelItem(0)->text(1).toStdString(), fullPath(installed()));
    auto* about = dlgtest::child<QPushButton>(&dlg, "about");
    EXPECT_TRUE(about->isEnabled());
    EXPECT_FALSE(dlgtest::child<QPushButton>(&dlg, "help")->isEnabled());
    EXPECT_TRUE(dlgtest::child<QPushButton>(&dlg, "options")->isEnabled());
    about->click();
    dlgtest::child<QPushButton>(&dlg, "options")->click();
    EXPECT_NE(log().find("about options"), std::string::npos) << log();
}

TEST_F(PlugInWindowsTest, AddRemovePlugInsInstallsRefusesAndRemoves) {
    TAddRemovePlugInsDlg dlg(frame_.get());
    const std::string notALibrary = write("text.zop", "just text\n").string();
    struct Refused {
        const char* name;
        std::string path;
        const char* says;
    };
    for (const Refused& r : {Refused{"not a library", notALibrary, "is not a plug-in module"},
                             Refused{"no XPP_Initialize", built("noinit.zop"), "could not be loaded"},
                             Refused{"missing", (home_ / "nothing.zop").string(), "cannot be read"}}) {
        SCOPED_TRACE(r.name);
        boxTexts_.clear();
        EXPECT_FALSE(dlg.addFrom(qs(r.path)));
        ASSERT_EQ(boxTexts_.size(), 1u);
        EXPECT_NE(boxTexts_[0].find(r.says), std::string::npos) << boxTexts_[0];
        EXPECT_FALSE(std::filesystem::exists(plugIns() + "/" + std::string(fileNamePart(r.path))));
    }
    ASSERT_TRUE(dlg.addFrom(qs(built("panel.zop"))));
    keep();
    EXPECT_NE(findPlugInByName("Panel Test"), nullptr);
    EXPECT_NE(dock(), nullptr);
    boxTexts_.clear();
    EXPECT_FALSE(dlg.addFrom(qs(built("panel.zop"))));
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_NE(boxTexts_[0].find("already installed"), std::string::npos);

    fn<void (*)(int)>("panel_allow_unload")(0);
    ASSERT_TRUE(dlg.select("panel.zop"));
    boxTexts_.clear();
    dlgtest::child<QPushButton>(&dlg, "remove")->click();
    ASSERT_EQ(boxTexts_.size(), 2u);  // the question, then the refusal
    EXPECT_NE(boxTexts_[1].find("does not allow unloading"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(installed()));
    EXPECT_NE(findPlugInByName("Panel Test"), nullptr);

    fn<void (*)(int)>("panel_allow_unload")(1);
    dlgtest::child<QPushButton>(&dlg, "remove")->click();
    settle();
    EXPECT_FALSE(std::filesystem::exists(installed()));
    EXPECT_EQ(findPlugInByName("Panel Test"), nullptr);
    EXPECT_EQ(dock(), nullptr);
    std::string logText;
    ASSERT_TRUE(readWholeFile(plugIns() + "/install.log", logText));
    EXPECT_NE(logText.find("installed panel.zop from"), std::string::npos);
    EXPECT_NE(logText.find("removed panel.zop"), std::string::npos);
}

TEST_F(PlugInWindowsTest, LockUpdateHoldsPaintingUntilTheMatchingUnlock) {
    open("a.txt", "one\ntwo\n");
    TVekWinEditor* v = view();
    PaintCounter counter;
    v->viewport()->installEventFilter(&counter);
    HDOC h = &doc();
    Zol_UnlockUpdate(h);  // without a lock: harmless
    Zol_LockUpdate(h);
    Zol_LockUpdate(h);
    settle();
    counter.paints = 0;
    Zol_InsertText(h, "text ");
    Zol_RedrawWindow(h);
    settle();
    Zol_UnlockUpdate(h);
    settle();
    EXPECT_EQ(counter.paints, 0);
    EXPECT_TRUE(v->updateLocked());
    Zol_UnlockUpdate(h);
    settle();
    EXPECT_GT(counter.paints, 0);
    EXPECT_FALSE(v->updateLocked());

    Zol_LockUpdate(h);
    Zol_DestroyDocument(h);
    settle();
    Document* next = frame_->newFile();
    settle();
    ASSERT_NE(frame_->viewOf(next), nullptr);
    EXPECT_FALSE(frame_->viewOf(next)->updateLocked());
}

// A script that stops between its lock and its unlock (an error, the Stop command)
// would leave the window frozen: the end of every run lets it paint again.
TEST_F(PlugInWindowsTest, TheEndOfAScriptRunReleasesLocks) {
    open("a.txt", "one\n");
    Zol_LockUpdate(&doc());
    Zol_LockUpdate(&doc());
    const std::string script = write("empty.c", "int main(void) { return 0; }\n").string();
    QSignalSpy ended(&frame_->scriptHost(), &TScriptHost::runEnded);
    ASSERT_TRUE(runScript(script, {}, "empty.c", ScriptStarter::User).detached);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.count() == 1; }, 10000));
    EXPECT_FALSE(view()->updateLocked());
}

TEST_F(PlugInWindowsTest, ScrollPositionAndWindowHandleOfADocumentWindow) {
    std::string text;
    for (int i = 0; i < 300; ++i) text += std::string(400, 'x') + "\n";
    open("wide.txt", text);
    HDOC h = &doc();
    Zol_SetWndScrollPos(h, 40, 120);
    int col = 0, line = 0;
    Zol_GetWndScrollPos(h, &col, &line);
    EXPECT_EQ(col, 40);
    EXPECT_EQ(line, 120);
    EXPECT_EQ(view()->firstVisibleLine(), 119);

    const ZOL_WND w = Zol_GetDocWndHandle(h);
    EXPECT_NE(w, 0);
    EXPECT_NE(w, reinterpret_cast<ZOL_WND>(h));
    EXPECT_EQ(scriptWindow(scriptWindowToken(w)), w);
}

}  // namespace
}  // namespace zol::qttest
