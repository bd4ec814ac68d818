// The menus, the command palette and the context menu: labels a person can read, the
// keys of the key map beside them, and every item running something.
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <set>

#include "app/qt/command_palette.h"
#include "app/qt/menus.h"
#include "config/settings.h"
#include "engine/bookmarks.h"
#include "engine/executor.h"
#include "engine/selection.h"
#include "qt_fixture.h"

namespace zol::qttest {
namespace {

using MenuTest = DesktopTest;

// Keeps what the executor records instead of a macro.
struct RecordedSteps : MacroStore {
    std::vector<std::pair<uint16_t, uint32_t>> steps;
    bool has(uint16_t) const override { return false; }
    std::string name(uint16_t) const override { return {}; }
    uint16_t find(std::string_view) const override { return 0; }
    void play(Document&, uint16_t) override {}
    void startRecording(Document&) override {}
    void recordStep(Document&, uint16_t id, uint32_t param) override { steps.emplace_back(id, param); }
    void stopRecording(Document&) override {}
};

QChar mnemonic(const QString& text) {
    const qsizetype at = text.indexOf(QLatin1Char('&'));
    return at >= 0 && at + 1 < text.size() ? text[at + 1].toLower() : QChar();
}

bool carriedOut(const CommandRecord& r) {
    switch (r.owner) {
    case CommandOwner::Executor: return true;
    case CommandOwner::Frame: return TMainFrame::handlesCommand(r.id);
    default: return commandHandler(r.id) != nullptr;
    }
}

bool isFrameAction(const std::string& name) {
    for (const TMainFrame::FrameAction& a : TMainFrame::frameActions())
        if (name == a.name) return true;
    return false;
}

// Checks the items of m and its submenus; counts the command items.
void checkMenu(QMenu* m, int& commandItems) {
    Q_EMIT m->aboutToShow();
    std::set<QChar> taken;
    for (QAction* a : m->actions()) {
        if (a->isSeparator()) continue;
        if (a->property(TMainFrame::kMacroMenuItemProperty).isValid()) continue;  // the user's own texts
        const QChar key = mnemonic(a->text());
        EXPECT_FALSE(key.isNull()) << a->text().toStdString();
        EXPECT_TRUE(taken.insert(key).second) << "mnemonic taken twice: " << a->text().toStdString();
        if (a->menu()) checkMenu(a->menu(), commandItems);
        if (const uint16_t id = menuCommand(a)) {
            ++commandItems;
            const CommandRecord* r = findCommand(id);
            if (r->owner == CommandOwner::Inert) {
                EXPECT_FALSE(a->isEnabled()) << r->name;
                EXPECT_EQ(a->statusTip(), QString::fromLatin1(qtmsg::kNotAvailableTip));
                continue;
            }
            // A hidden item (a user tool's row without a tool) counts as disabled.
            EXPECT_TRUE((a->isEnabled() || !a->isVisible()) && carriedOut(*r)) << r->name;
            const std::vector<std::string> keys = commandKeyNames(keyMap(), id);
            if (!keys.empty()) {
                EXPECT_TRUE(a->text().endsWith(QString::fromStdString("\t" + keys[0]))) << r->name;
            }
        } else if (const std::string action = menuAction(a); !action.empty()) {
            EXPECT_TRUE(isFrameAction(action)) << action;
        }
    }
}

TEST_F(MenuTest, ItemsHaveMnemonicsTheirKeysAndSomethingToRun) {
    open("m.txt", "x");
    QTest::keyClicks(view(), "y");  // something to undo
    int commandItems = 0;
    std::set<QChar> topLevel;
    for (QAction* top : frame_->menuBar()->actions()) {
        EXPECT_TRUE(topLevel.insert(mnemonic(top->text())).second) << top->text().toStdString();
        checkMenu(top->menu(), commandItems);
    }
    int commandRows = 0;
    for (const qtmsg::MenuRow& row : qtmsg::kMenuBar) commandRows += row.item == qtmsg::MenuItem::Command;
    EXPECT_EQ(commandItems, commandRows);  // every row names a command that exists

    // The Undo item says what it undoes; the keys follow the key map.
    QMenu* edit = frame_->menu("Edit");
    Q_EMIT edit->aboutToShow();
    EXPECT_TRUE(edit->actions().front()->text().startsWith("&Undo Typing\t")) << edit->actions().front()->text().toStdString();
    QMenu* file = frame_->menu("File");
    auto saveItem = [file] {
        for (QAction* a : file->actions())
            if (menuCommand(a) == idOf(Cmd::SaveFile)) return a->text();
        return QString();
    };
    EXPECT_EQ(saveItem(), "&Save\tCtrl+S");
    std::erase_if(keyMap().tables[0], [](const KeyMapEntry& e) { return e.command == idOf(Cmd::SaveFile); });
    Q_EMIT file->aboutToShow();
    EXPECT_EQ(saveItem(), "&Save\tCtrl+K, S");
}

TEST_F(MenuTest, PaletteNarrowsAsYouTypeAndRunsTheCommandThroughTheExecutor) {
    open("p.txt", "one\ntwo\nthree");
    RecordedSteps recorded;
    MacroStore* saved = macroStore();
    setMacroStore(&recorded);
    doc().recorder = Recorder::Recording;
    whenModal<TCommandPalette>([](TCommandPalette* p) {
        const int all = p->shownCount();
        EXPECT_GE(all, static_cast<int>(commandTable().size()));
        QTest::keyClicks(p->filterEdit(), "readblockparam");
        EXPECT_EQ(p->selected(), nullptr);  // listed, but not to be run here
        p->filterEdit()->clear();
        QTest::keyClicks(p->filterEdit(), "save");
        ASSERT_NE(p->selected(), nullptr);
        EXPECT_EQ(p->selected()->name, "SaveFile") << "the menus' Save comes before SaveCursorPos";
        p->filterEdit()->clear();
        QTest::keyClicks(p->filterEdit(), "sel");
        const int some = p->shownCount();
        EXPECT_LT(some, all);
        QTest::keyClicks(p->filterEdit(), "ect all");
        EXPECT_LT(p->shownCount(), some);
        ASSERT_NE(p->selected(), nullptr);
        EXPECT_EQ(p->selected()->name, "SelectAll");
        QTest::keyClick(p->filterEdit(), Qt::Key_Return);
    });
    frame_->openPalette();
    EXPECT_TRUE(hasSelection(doc()));

    // A command with a number asks for it.
    whenModal<TCommandPalette>([](TCommandPalette* p) {
        QTest::keyClicks(p->filterEdit(), "GoToLineNum");
        QTest::keyClick(p->filterEdit(), Qt::Key_Return);
    });
    whenModal<QInputDialog>([](QInputDialog* in) {
        in->setIntValue(3);
        in->accept();
    });
    frame_->openPalette();
    setMacroStore(saved);
    doc().recorder = Recorder::Idle;
    EXPECT_EQ(doc().cursor.line, 2);
    const std::vector<std::pair<uint16_t, uint32_t>> expected{{idOf(Cmd::SelectAll), 0}, {idOf(Cmd::GoToLineNum), 3}};
    EXPECT_EQ(recorded.steps, expected);
}

// Shows the context menu as a right click does; returns the commands of its items.
std::vector<uint16_t> rightClick(TVekWinEditor* v, QPoint at, const char* take = nullptr) {
    std::vector<uint16_t> items;
    QTimer::singleShot(0, [&items, take] {
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        QAction* chosen = nullptr;
        for (QAction* a : popup->actions()) {
            if (!a->isSeparator()) items.push_back(menuCommand(a));
            if (take && menuCommand(a) == findCommand(std::string_view(take))->id) chosen = a;
        }
        popup->close();
        if (chosen) chosen->trigger();
    });
    QContextMenuEvent e(QContextMenuEvent::Mouse, at, v->viewport()->mapToGlobal(at));
    QApplication::sendEvent(v->viewport(), &e);
    return items;
}

TEST_F(MenuTest, RightButtonOpensTheContextMenuWhereItClickedOrPastes) {
    open("c.txt", "alpha beta\ngamma delta\n");
    const QPoint secondLine = view()->caretRect().center() + QPoint(view()->charWidth() * 7, view()->lineHeight());
    std::vector<uint16_t> names;
    for (uint16_t id : rightClick(view(), secondLine, "BookmarkToggle")) names.push_back(id);
    std::vector<uint16_t> expected;
    for (const qtmsg::MenuRow& row : qtmsg::kContextMenu)
        if (row.item == qtmsg::MenuItem::Command) expected.push_back(findCommand(std::string_view(row.name))->id);
    EXPECT_EQ(names, expected);
    EXPECT_EQ(doc().cursor, makePos(7, 1));
    EXPECT_TRUE(isBookmarked(doc(), 1));
    std::unique_ptr<QMenu> menu(frame_->contextMenu(view()));
    EXPECT_FALSE(menu->actions().front()->isEnabled());  // nothing selected to cut

    settings().rightMouseBtn = 1;
    shell().setClipboard(ClipboardData{"X"});
    QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, view()->caretRect().center() - QPoint(view()->charWidth() * 7, 0));
    EXPECT_EQ(line(1), "Xgamma delta");
}

}  // namespace
}  // namespace zol::qttest
