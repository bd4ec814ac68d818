#include <QInputDialog>
#include <QLineEdit>
#include <QTableWidget>
#include <QTreeWidget>

#include "app/qt/dialogs/character_dialog.h"
#include "app/qt/dialogs/goto_dialog.h"
#include "app/qt/dialogs/macro_dialogs.h"
#include "app/qt/dialogs/named_bookmarks.h"
#include "engine/bookmarks.h"
#include "engine/document.h"
#include "engine/edit.h"
#include "tests/qt/dialogs_support.h"

namespace zol::qttest {
namespace {

TEST(SmallDialogs, GoToTakesOnlyANumberAndCancelKeepsTheValue) {
    dlgtest::ensureApp();
    int value = 7;
    whenModal<TGoToDialog>([](TGoToDialog* d) {
        auto* edit = d->findChild<QLineEdit*>("value");
        EXPECT_EQ(edit->text(), "7");
        edit->clear();
        QTest::keyClicks(edit, "4x2");  // the letter is not taken
        pressOk(d);
    });
    ASSERT_TRUE(TGoToDialog::run(nullptr, "Line:", value));
    EXPECT_EQ(value, 42);
    whenModal<TGoToDialog>([](TGoToDialog* d) {
        d->findChild<QLineEdit*>("value")->setText("99");
        d->reject();
    });
    EXPECT_FALSE(TGoToDialog::run(nullptr, "Line:", value));
    EXPECT_EQ(value, 42);
}

TEST(SmallDialogs, RecordMacroNameKeepsWithinTheNameSize) {
    dlgtest::ensureApp();
    std::string name = "Macro1";
    whenModal<TRecordMacroDialog>([](TRecordMacroDialog* d) {
        auto* edit = d->findChild<QLineEdit*>("name");
        EXPECT_EQ(edit->text(), "Macro1");
        edit->clear();
        QTest::keyClicks(edit, QString(40, 'n'));
        pressOk(d);
    });
    ASSERT_TRUE(TRecordMacroDialog::run(nullptr, name));
    EXPECT_EQ(name, std::string(31, 'n'));
}

TEST(SmallDialogs, CharacterTableGivesTheCodeOfTheChosenCell) {
    dlgtest::ensureApp();
    whenModal<TCharacterDialog>([](TCharacterDialog* d) {
        auto* table = d->findChild<QTableWidget*>("characters");
        EXPECT_EQ(table->item(8, 0)->text(), QString(QChar(0x20AC)));  // 0x80 is the euro sign
        table->setCurrentCell(0, 0);  // code 0 cannot be chosen
        EXPECT_FALSE(d->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
        table->setCurrentCell(14, 9);
        pressOk(d);
    });
    EXPECT_EQ(TCharacterDialog::run(nullptr, "Insert"), 0xE9);
    whenModal<TCharacterDialog>([](TCharacterDialog* d) { d->reject(); });
    EXPECT_EQ(TCharacterDialog::run(nullptr, "Insert"), -1);
}

TEST(SmallDialogs, NamedBookmarksAddAtTheCursorAndRefuseATakenName) {
    dlgtest::ensureApp();
    dlgtest::RecordingShell recorder;
    NamedBookmarks saved = namedBookmarks();
    namedBookmarks().entries.clear();
    Document doc;
    doc.fileName = "/tmp/notes.txt";
    doc.hasFile = true;
    insertText(doc, "one\ntwo\nthree");
    setCursor(doc, Pos{2, 1});
    auto addNamed = [](const char* name) {
        whenModal<QInputDialog>([name](QInputDialog* in) {
            in->setTextValue(name);
            in->accept();
        });
    };
    whenModal<TNamedBookmarks>([&](TNamedBookmarks* d) {
        auto* list = d->findChild<QTreeWidget*>("bookmarks");
        addNamed("here");
        d->findChild<QPushButton*>("add")->click();
        ASSERT_EQ(list->topLevelItemCount(), 1);
        EXPECT_EQ(list->topLevelItem(0)->text(1), "/tmp/notes.txt");
        EXPECT_EQ(list->topLevelItem(0)->text(2), "2");  // lines and columns shown from 1
        EXPECT_EQ(list->topLevelItem(0)->text(3), "3");
        addNamed("here");
        d->findChild<QPushButton*>("add")->click();
        EXPECT_EQ(list->topLevelItemCount(), 1);
        d->reject();
    });
    TNamedBookmarks::run(nullptr, &doc);
    ASSERT_EQ(namedBookmarks().entries.size(), 1u);
    EXPECT_EQ(namedBookmarks().entries[0].pos, (Pos{2, 1}));
    EXPECT_EQ(recorder.messages.size(), 1u);  // the refusal of the second "here"
    detachDocument(namedBookmarks(), doc);
    namedBookmarks() = saved;
}

}  // namespace
}  // namespace zol::qttest
