#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#include "app/qt/dialogs/find_dialog.h"
#include "search/history.h"
#include "tests/qt/dialogs_support.h"

namespace zol::qttest {
namespace {

class FindDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        dlgtest::ensureApp();
        setSearchHistoryLists(&finds_, &replaces_);
    }
    void TearDown() override { setSearchHistoryLists(nullptr, nullptr); }
    std::vector<std::string> finds_, replaces_;
};

// Opens the builder on a field holding "abXY" with the caret (or a selection) at
// `from`, clicks piece `index`, and gives back the field.
struct BuilderResult {
    QString text;
    int caret;
};
BuilderResult pickPiece(int index, int from, int selected = 0) {
    QLineEdit edit("abXY");
    edit.setCursorPosition(from);
    if (selected) edit.setSelection(from, selected);
    whenModal<TRegExprDialog>([index](TRegExprDialog* d) {
        QTest::mouseClick(d->findChild<QPushButton*>(QStringLiteral("piece%1").arg(index)), Qt::LeftButton);
    });
    EXPECT_TRUE(TRegExprDialog::run(nullptr, &edit));
    return {edit.text(), edit.cursorPosition()};
}

TEST_F(FindDialogTest, PatternBuilderPlacesThePieceAndTheCaret) {
    struct Case {
        const char* name;
        int piece, from, selected;
        const char* text;
        int caret;
    } cases[] = {
        {"after", 0, 2, 0, "ab.XY", 3},
        {"between the brackets", 1, 2, 0, "ab[]XY", 3},
        {"before the closing bracket", 2, 2, 0, "ab[^]XY", 4},
        {"after the escape", 3, 2, 0, "ab\\tXY", 4},
        {"between the braces", 9, 2, 0, "ab{}XY", 3},
        {"both anchors", 17, 2, 0, "ab^$XY", 4},
        {"at the very start", 1, 0, 0, "[]abXY", 1},
        {"over a selection, which it replaces", 2, 2, 2, "ab[^]", 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const BuilderResult r = pickPiece(c.piece, c.from, c.selected);
        EXPECT_EQ(r.text, QString(c.text));
        EXPECT_EQ(r.caret, c.caret);
    }
}

TEST_F(FindDialogTest, BuilderFromTheDialogEditsTheSearchFieldAndTurnsOnRegex) {
    FindDialogData data;
    data.findText = "foo";
    whenModal<TFindDialog>([](TFindDialog* d) {
        QLineEdit* field = child<QComboBox>(d, "findText")->lineEdit();
        field->setCursorPosition(0);
        whenModal<TRegExprDialog>([](TRegExprDialog* b) { child<QPushButton>(b, "piece2")->click(); });
        child<QPushButton>(d, "patternButton")->click();
        QTest::keyClicks(field, "x");  // typed at the caret the piece left
        child<QPushButton>(d, "findButton")->click();
    });
    EXPECT_EQ(TFindDialog::run(nullptr, data, false), FindDialogResult::Find);
    EXPECT_EQ(data.findText, "[^x]foo");
    EXPECT_TRUE(data.regex);
    ASSERT_FALSE(finds_.empty());
    EXPECT_EQ(finds_.front(), "[^x]foo");
}

TEST_F(FindDialogTest, OptionsRoundTripThroughTheReplaceDialog) {
    FindDialogData data{"abc", "def", true, false, true, false};
    whenModal<TFindDialog>([](TFindDialog* d) {
        // What came in is shown.
        EXPECT_EQ(child<QComboBox>(d, "findText")->currentText(), "abc");
        EXPECT_EQ(child<QComboBox>(d, "replaceText")->currentText(), "def");
        EXPECT_TRUE(child<QCheckBox>(d, "wholeWord")->isChecked());
        EXPECT_FALSE(child<QCheckBox>(d, "matchCase")->isChecked());
        EXPECT_TRUE(child<QCheckBox>(d, "regex")->isChecked());
        EXPECT_TRUE(child<QRadioButton>(d, "up")->isChecked());
        // Every option changed goes back out.
        child<QCheckBox>(d, "wholeWord")->click();
        child<QCheckBox>(d, "matchCase")->click();
        child<QCheckBox>(d, "regex")->click();
        child<QRadioButton>(d, "down")->click();
        QLineEdit* repl = child<QComboBox>(d, "replaceText")->lineEdit();
        repl->clear();
        repl->insert(QString::fromUtf8("caf\xc3\xa9"));  // é is in the code page
        child<QPushButton>(d, "replaceAllButton")->click();
    });
    EXPECT_EQ(TFindDialog::run(nullptr, data, true), FindDialogResult::ReplaceAll);
    EXPECT_EQ(data.findText, "abc");
    EXPECT_EQ(data.replaceText, "caf\xe9");
    EXPECT_FALSE(data.wholeWord);
    EXPECT_TRUE(data.matchCase);
    EXPECT_FALSE(data.regex);
    EXPECT_TRUE(data.forward);
    EXPECT_EQ(replaces_.front(), "caf\xe9");
}

TEST_F(FindDialogTest, RefusedOrCancelledDialogChangesNothing) {
    const FindDialogData before{"abc", "", false, true, false, true};
    FindDialogData data = before;
    whenModal<TFindDialog>([](TFindDialog* d) {
        QLineEdit* field = child<QComboBox>(d, "findText")->lineEdit();
        // A character outside the code page is refused with a message; the dialog stays.
        field->setText(QString::fromUtf8("a\xe2\x86\x92" "b"));
        whenModal<QMessageBox>([](QMessageBox* box) { box->accept(); });
        child<QPushButton>(d, "findButton")->click();
        EXPECT_TRUE(d->isVisible());
        // An empty text cannot be searched for.
        field->clear();
        EXPECT_FALSE(child<QPushButton>(d, "findButton")->isEnabled());
        child<QCheckBox>(d, "wholeWord")->click();
        child<QPushButton>(d, "cancelButton")->click();
    });
    EXPECT_EQ(TFindDialog::run(nullptr, data, false), FindDialogResult::Cancel);
    EXPECT_EQ(data.findText, before.findText);
    EXPECT_EQ(data.wholeWord, before.wholeWord);
    EXPECT_TRUE(finds_.empty());
}

TEST_F(FindDialogTest, HistoryIsOfferedMostRecentFirst) {
    rememberFind("one");
    rememberFind("two");
    FindDialogData data;
    whenModal<TFindDialog>([](TFindDialog* d) {
        QComboBox* combo = child<QComboBox>(d, "findText");
        ASSERT_EQ(combo->count(), 2);
        EXPECT_EQ(combo->itemText(0), "two");
        combo->setCurrentIndex(1);
        child<QPushButton>(d, "findButton")->click();
    });
    EXPECT_EQ(TFindDialog::run(nullptr, data, false), FindDialogResult::Find);
    EXPECT_EQ(data.findText, "one");
    EXPECT_EQ(finds_, (std::vector<std::string>{"one", "two"}));
}

}  // namespace
}  // namespace zol::qttest
