// Spelling, AutoCorrect and completion through the real view and dialogs.
#include <QLineEdit>
#include <QListWidget>

#include "app/qt/completion_popup.h"
#include "app/qt/dialogs/spelling_dialog.h"
#include "engine/command_table.h"
#include "engine/undo.h"
#include "qt_fixture.h"

namespace zol::qttest {
namespace {

using ProofingTest = DesktopTest;

// Presses the named buttons of the Spelling dialog in turn, one for each word it shows.
void answerSpelling(std::vector<const char*> buttons) {
    auto* timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, [timer, buttons, next = size_t{0}]() mutable {
        auto* dlg = qobject_cast<TSpellingDlg*>(QApplication::activeModalWidget());
        if (!dlg) return;
        auto* b = dlg->findChild<QPushButton*>(next < buttons.size() ? buttons[next] : "close");
        if (!b || !b->isEnabled()) return;
        ++next;
        b->click();
    });
    QObject::connect(qApp, &QObject::destroyed, timer, &QObject::deleteLater);
    timer->start(5);
}

TEST_F(ProofingTest, SpellingChangesAllAndOneUndoTakesItBack) {
    const std::string text = "/* teh cat */\nint teh;\n// and teh dog\n";
    open("a.c", text);
    setCursor(doc(), makePos(0, 0));
    answerSpelling({"changeAll"});
    view()->runCommand(idOf(Cmd::Spelling));
    EXPECT_EQ(line(0), "/* the cat */");
    EXPECT_EQ(line(1), "int teh;") << "code is left alone";
    EXPECT_EQ(line(2), "// and the dog");
    ASSERT_FALSE(boxTexts_.empty());
    EXPECT_EQ(boxTexts_.back(), "The spelling check is complete.");
    EXPECT_STREQ(undoLabel(doc().undo), "&Undo Spelling");
    view()->runCommand(idOf(Cmd::Undo));
    EXPECT_EQ(line(0), "/* teh cat */");
    EXPECT_EQ(line(2), "// and teh dog");
}

TEST_F(ProofingTest, TypingCorrectsAWordAndUndoGivesItBack) {
    frame_->newFile();
    QTest::keyClicks(view(), "so teh ");
    EXPECT_EQ(line(0), "so the ");
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line(0), "so teh ");
    QTest::keyClicks(view(), "cat");
    EXPECT_EQ(line(0), "so teh cat");
}

TEST_F(ProofingTest, CompletionPopupNarrowsAndEnterAccepts) {
    open("b.txt", "zetaone zetatwo zebra\n");
    open("a.c", "\n");
    QTest::keyClicks(view(), "ze");
    QTest::keyClick(view(), Qt::Key_Space, Qt::ControlModifier);
    TCompletionPopup* popup = TCompletionPopup::of(view());
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->shownCount(), 3);
    QTest::keyClicks(view(), "ta");
    EXPECT_EQ(popup->shownCount(), 2);
    QTest::keyClick(view(), Qt::Key_Down);
    QTest::keyClick(view(), Qt::Key_Return);
    EXPECT_EQ(line(0), "zetatwo");
    QApplication::processEvents();
    EXPECT_EQ(TCompletionPopup::of(view()), nullptr);
    EXPECT_EQ(lastLine(doc()), 1) << "Enter went to the popup, not the document";
}

}  // namespace
}  // namespace zol::qttest
