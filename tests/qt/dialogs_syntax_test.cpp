// The language definition dialogs on the real frame: what they write to "syntax.hgl",
// what the reloaded table colours, and what they refuse.
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTreeWidget>
#include <fstream>

#include "app/qt/dialogs/syntax_define_dialog.h"
#include "app/qt/dialogs/syntax_dialog.h"
#include "app/qt/dialogs/syntax_preview.h"
#include "files/messages.h"
#include "platform/profile.h"
#include "qt_fixture.h"
#include "syntax/messages.h"
#include "syntax/edit_copy.h"
#include "syntax/scanner.h"
#include "tests/support/files.h"

namespace zol::qttest {
namespace {

using Define = TSyntaxHighlightDefineLangDlg;

void click(QWidget* d, const char* name) { child<QPushButton>(d, name)->click(); }
void type(QWidget* d, const char* name, const QString& text) {
    QLineEdit* e = child<QLineEdit>(d, name);
    e->clear();
    QTest::keyClicks(e, text);
}
void pair(QWidget* d, const char* key, const char* open, const char* close) {
    QWidget* w = child<QWidget>(d, key);
    w->findChild<QLineEdit*>("open")->setText(open);
    w->findChild<QLineEdit*>("close")->setText(close);
}
void colour(QWidget* d, const char* key, int index) {
    QComboBox* c = child<QComboBox>(d, key);
    c->setCurrentIndex(c->findData(index));
}
void select(QWidget* d, int row) {
    QTreeWidget* list = child<QTreeWidget>(d, "languages");
    list->setCurrentItem(list->topLevelItem(row));
}

// The palette index the scanner gives each character of text in a slot, as letters:
// "." for 0, "a" for 1 and so on.
std::string colours(int slot, std::string_view text) {
    std::vector<uint8_t> out(text.size());
    scanLine(syntaxTable(), slot, text, out.data(), 0);
    std::string s;
    for (uint8_t c : out) s += c ? static_cast<char>('a' + c - 1) : '.';
    return s;
}

class SyntaxDialogTest : public DesktopTest {
protected:
    std::string path() const { return (home_ / "syntax.hgl").string(); }
    void putHgl(std::string_view text) {
        test::writeBytes(path(), text);
        flushProfileCache();
        loadDefinitions(syntaxTable(), path());
    }
    std::string hgl() const { return test::readBytes(path()); }
    bool run() { return TSyntaxHighlightDlg::run(frame_.get()); }
};

TEST_F(SyntaxDialogTest, ANewLanguageColoursOpenAndNewDocuments) {
    putHgl("[Text]\nFilePattern=*.txt\n");
    Document* before = open("before.zz", "zap\n");
    ASSERT_EQ(before->syntaxSlot, 0);
    whenModal<TSyntaxHighlightDlg>([](TSyntaxHighlightDlg* d) {
        whenModal<TSyntaxHighlightAddLangDlg>([](TSyntaxHighlightAddLangDlg* a) {
            type(a, "name", "Zed");
            whenModal<Define>([](Define* def) {
                type(def, "FilePattern", "*.zz");
                type(def, "Words", "a-zA-Z");
                type(def, "newKeyword", "zap  zip");
                QTest::keyClick(child<QLineEdit>(def, "newKeyword"), Qt::Key_Return);  // adds; the dialog stays
                EXPECT_TRUE(def->isVisible());
                pair(def, "MultiComment", "{", "}");
                type(def, "LineComment1", "--");
                colour(def, "ColorKeyword", 13);
                colour(def, "ColorComment", 10);
                // The preview's sample shows the keyword in its colour as the user picks it.
                auto* preview = child<TSyntaxPreview>(def, "preview");
                const QTextBlock block = preview->document()->findBlock(preview->toPlainText().indexOf("zap"));
                ASSERT_TRUE(block.isValid());
                const QList<QTextLayout::FormatRange> runs = block.layout()->formats();
                ASSERT_FALSE(runs.isEmpty());
                EXPECT_EQ(runs.front().start, block.text().indexOf("zap"));
                EXPECT_EQ(runs.front().format.foreground().color(), QColor(255, 0, 0));
                pressOk(def);
            });
            pressOk(a);
        });
        click(d, "add");
        EXPECT_EQ(child<QTreeWidget>(d, "languages")->topLevelItem(1)->text(1), "*.zz");
        pressOk(d);
    });
    ASSERT_TRUE(run());
    const std::string file = hgl();
    for (const char* line : {"[Zed]\n", "FilePattern=*.zz\n", "Keyword3=zapzip\n", "MultiComment={ }\n",
                             "LineComment1=--\n", "ColorKeyword=13\n", "ColorComment=10\n", "CaseSensitive=No\n"})
        EXPECT_NE(file.find(line), std::string::npos) << line;
    // The document that was open takes the language at once; a new one by its name.
    EXPECT_EQ(before->syntaxSlot, 2);
    Document* x = open("x.zz", "ZAP {c} -- note\n");
    ASSERT_EQ(x->syntaxSlot, 2);
    EXPECT_EQ(colours(2, line(0)), "mmm.jjj.jjjjjjj");
}

TEST_F(SyntaxDialogTest, FieldsKeepTheirLimitsAndMayBeEmptied) {
    putHgl("[Lim]\nFilePattern=*.lim\nWords=a-z\nKeyword3=abc\n");
    QString many;
    for (int i = 0; i < 180; ++i) many += QStringLiteral("k%1 ").arg(i, 2, 36, QChar('0'));
    whenModal<TSyntaxHighlightDlg>([many](TSyntaxHighlightDlg* d) {
        whenModal<Define>([many](Define* def) {
            type(def, "FilePattern", QString(70, 'p'));
            type(def, "LineComment1", "REM x");
            type(def, "StringDelim", "\"'");
            type(def, "Words", "");
            child<QSpinBox>(def, "CobolCommentPos")->setValue(5000);
            child<QSpinBox>(def, "MaxLineLen")->setValue(40000);
            type(def, "newKeyword", many);
            click(def, "addKeyword");
            // "abc" and 169 more fill the 511 characters of the list; the rest stay typed.
            EXPECT_EQ(child<QListWidget>(def, "Keyword%d")->count(), 170);
            EXPECT_TRUE(child<QLineEdit>(def, "newKeyword")->text().startsWith("k4p "));
            // Half a pair cannot be saved: said, and the dialog stays for the other half.
            pair(def, "MultiComment", "(*", "");
            whenModal<Define>([](Define* again) {
                pair(again, "MultiComment", "(*", "*)");
                pressOk(again);
            });
            pressOk(def);
        });
        select(d, 0);
        click(d, "define");
        pressOk(d);
    });
    ASSERT_TRUE(run());
    EXPECT_EQ(boxTexts_, (std::vector<std::string>{syntaxmsg::fill(syntaxmsg::kTooManyKeywords, "3"),
                                                   "\"Block comment\" needs both the opening and the closing characters."}));
    EXPECT_EQ(getProfileString("Lim", "FilePattern", "", path()), std::string(63, 'p'));
    EXPECT_EQ(getProfileString("Lim", "LineComment1", "", path()), "REM\xA0");
    EXPECT_EQ(getProfileString("Lim", "StringDelim", "", path()), "\"");
    EXPECT_EQ(getProfileString("Lim", "CobolCommentPos", "", path()), "999");
    EXPECT_EQ(getProfileString("Lim", "MaxLineLen", "", path()), "32767");
    EXPECT_EQ(getProfileString("Lim", "MultiComment", "", path()), "(* *)");
    EXPECT_EQ(getProfileString("Lim", "Keyword3", "", path()).size(), 510u);
    ASSERT_TRUE(findProfileString("Lim", "Words", path()));
    EXPECT_EQ(*findProfileString("Lim", "Words", path()), "");
    EXPECT_EQ(definitionAt(syntaxTable(), 1)->cls('a') & kClsWord, 0);
}

TEST_F(SyntaxDialogTest, RemoveAndReorderOnlyOnOk) {
    const std::string original = "; mine\n[A]\nFilePattern=*.a\n[B]\nFilePattern=*.b\n[C]\nFilePattern=*.c\n";
    putHgl(original);
    whenModal<TSyntaxHighlightDlg>([](TSyntaxHighlightDlg* d) {
        select(d, 0);
        click(d, "remove");
        d->reject();
    });
    EXPECT_FALSE(run());
    EXPECT_EQ(hgl(), original);
    whenModal<TSyntaxHighlightDlg>([](TSyntaxHighlightDlg* d) {
        select(d, 0);
        click(d, "remove");
        select(d, 1);
        click(d, "up");
        EXPECT_FALSE(child<QPushButton>(d, "up")->isEnabled());
        pressOk(d);
    });
    ASSERT_TRUE(run());
    const std::string file = hgl();
    EXPECT_EQ(file.rfind("; mine\n", 0), 0u);
    EXPECT_EQ(file.find("[A]"), std::string::npos);
    EXPECT_LT(file.find("[C]"), file.find("[B]"));
    EXPECT_EQ(definitionAt(syntaxTable(), 1)->name, "C");
    EXPECT_EQ(definitionAt(syntaxTable(), 3), nullptr);
}

TEST_F(SyntaxDialogTest, TakenNamesAndATwentyFirstLanguageAreRefused) {
    // The shipped file holds twenty languages.
    ASSERT_NE(definitionAt(syntaxTable(), kSyntaxSlots), nullptr);
    const std::string shipped = hgl();
    whenModal<TSyntaxHighlightDlg>([](TSyntaxHighlightDlg* d) {
        bool addOpened = false;
        QTimer guard;
        QObject::connect(&guard, &QTimer::timeout, [&addOpened] {
            if (auto* a = qobject_cast<TSyntaxHighlightAddLangDlg*>(QApplication::activeModalWidget())) {
                addOpened = true;
                a->reject();
            }
        });
        guard.start(1);
        click(d, "add");
        guard.stop();
        EXPECT_FALSE(addOpened);
        select(d, 0);
        click(d, "remove");
        whenModal<TSyntaxHighlightAddLangDlg>([](TSyntaxHighlightAddLangDlg* a) {
            type(a, "name", "  python ");
            pressOk(a);  // taken: said, and the dialog stays
            EXPECT_TRUE(a->isVisible());
            a->reject();
        });
        click(d, "add");
        d->reject();
    });
    EXPECT_FALSE(run());
    EXPECT_EQ(boxTexts_, (std::vector<std::string>{syntaxmsg::kTooManyLanguages,
                                                   syntaxmsg::fill(syntaxmsg::kLanguageExists, "python")}));
    EXPECT_EQ(hgl(), shipped);
}

// Permissions bind ordinary users; where they do not (root), a full disk stands in.
TEST_F(SyntaxDialogTest, AFileThatCannotBeWrittenStaysWholeAndIsNamed) {
    const std::string original = "[A]\nFilePattern=*.a\n[B]\nFilePattern=*.b\n";
    putHgl(original);
    whenModal<TSyntaxHighlightDlg>([this](TSyntaxHighlightDlg* d) {
        select(d, 0);
        click(d, "remove");
        // A file without write bits stays read-only even for root.
        std::filesystem::permissions(path(), std::filesystem::perms::owner_read);
        pressOk(d);
        std::filesystem::permissions(path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
        EXPECT_TRUE(d->isVisible());
        EXPECT_EQ(child<QTreeWidget>(d, "languages")->topLevelItemCount(), 1);
        d->reject();
    });
    EXPECT_FALSE(run());
    EXPECT_EQ(boxTexts_, std::vector<std::string>{filemsg::withFileName(filemsg::kReadOnlyTarget, path())});
    EXPECT_EQ(hgl(), original);
    EXPECT_EQ(definitionAt(syntaxTable(), 1)->name, "A");
}

// The picture in docs/images/syntax_dialog.png comes from BUILD/screenshots/.
TEST(SyntaxDialogPicture, ThePreviewPaintsInThePalettesColours) {
    dlgtest::ensureApp();
    const std::vector<SyntaxEditLanguage> shipped = readEditCopy(std::string(ZOLDER_SOURCE_DIR) + "/data/syntax.hgl");
    ASSERT_EQ(shipped.front().colour[kColKeyword], 10);
    TSyntaxHighlightDefineLangDlg dlg(nullptr, shipped.front());
    dlg.findChild<QTabWidget*>()->setCurrentIndex(static_cast<int>(dlgmsg::DefinePage::Colours));
    dlg.adjustSize();
    dlg.show();
    QApplication::processEvents();
    const std::filesystem::path out = std::filesystem::path(ZOLDER_BUILD_DIR) / "screenshots";
    std::filesystem::create_directories(out);
    EXPECT_TRUE(dlg.grab().save(QString::fromStdString((out / "syntax_dialog.png").string())));
    const QImage preview = child<TSyntaxPreview>(&dlg, "preview")->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    int keywordPixels = 0;
    for (int y = 0; y < preview.height(); ++y)
        for (int x = 0; x < preview.width(); ++x) keywordPixels += preview.pixel(x, y) == qRgb(0, 0, 255);
    EXPECT_GT(keywordPixels, 20);
}

}  // namespace
}  // namespace zol::qttest
