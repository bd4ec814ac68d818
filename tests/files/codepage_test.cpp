// Built-in and user conversion tables and the "ConvertText" command.
#include "engine/bookmarks.h"
#include "engine/command_table.h"
#include "engine/executor.h"
#include "engine/undo.h"
#include "files/codepage.h"
#include "files/convert_command.h"
#include "files/messages.h"
#include "platform/profile.h"
#include "tests/support/documents.h"
#include "tests/support/files.h"
#include "tests/support/temp_home.h"

namespace zol::test {
namespace {

// The command with its dialogs answered by the test's choice.
class Convert : public TempHome, public ConvertChooser {
protected:
    void SetUp() override {
        TempHome::SetUp();
        installConvertCommand();
        setConvertChooser(this);
    }
    void TearDown() override {
        setConvertChooser(nullptr);
        TempHome::TearDown();
    }
    bool chooseKind(ConvertChoice& c) override {
        c = choice;
        return true;
    }
    bool chooseTable(const std::vector<std::string>&, std::string& picked) override {
        picked = choice.table;
        return true;
    }
    int convert() { return execute(doc, commandId("ConvertText", false)); }
    void tables(std::string_view text) {
        put(kConvertTableFile, text);
        flushProfileCache();
    }
    void select(Pos a, Pos b, SelMode mode) {
        doc.selExists = true;
        doc.selMode = mode;
        doc.selAnchor = a;
        doc.selEnd = b;
    }

    ConvertChoice choice;
    Document doc;
};

TEST(CodePageTables, SharedCharactersGoThereAndBackOthersLookAlike) {
    const ConvertTable toAnsi = oemToAnsiTable(), toOem = ansiToOemTable();
    EXPECT_EQ(toOem[0x80], 'E');    // €
    EXPECT_EQ(toAnsi[0xC9], '+');   // a box corner
    int shared = 0;
    for (int c = 0; c < 0x100; ++c) {
        if (ansiToUnicode(toAnsi[c]) != oemToUnicode(static_cast<uint8_t>(c))) continue;
        ++shared;
        EXPECT_EQ(toOem[toAnsi[c]], c) << c;
    }
    EXPECT_EQ(shared, 128 + 54);
}

TEST(CodePageTables, ShippedUserTablesLoad) {
    const std::string shipped = std::string(ZOLDER_SOURCE_DIR) + "/data/TEXT.CNV";
    std::vector<std::string> names;
    ASSERT_TRUE(userTableNames(shipped, names));
    EXPECT_GE(names.size(), 2u);
    const ConvertTable upper = userTable(shipped, "Upper case (Windows-1252)");
    EXPECT_EQ(upper['q'], 'Q');
    EXPECT_EQ(upper[0xE9], 0xC9);
    EXPECT_EQ(userTable(shipped, "DOS (CP437) to ISO-8859-1")[0x81], 0xFC);
}

TEST_F(Convert, BadTableFilesAndEntriesChangeNothing) {
    fill(doc, "ABCDEGH\xC8");
    choice.table = "Odd";
    EXPECT_EQ(convert(), 0);
    EXPECT_EQ(shell_.messages, Lines{filemsg::withFileName(filemsg::kCannotOpenTables, path(kConvertTableFile))});
    tables("; no tables\n");
    EXPECT_EQ(convert(), 0);
    EXPECT_EQ(shell_.messages.size(), 1u);
    EXPECT_FALSE(doc.modified);

    // Tab made, zero, out of range, negative, not a number, garbage key.
    tables("[Odd]\n65=9\n66=0\n67=300\n68=-5\n69=abc\nxyz=70\n71=72\n72=71\n200=0\n");
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(linesOf(doc)[0], "ABCDEHG\xC8");
}

TEST_F(Convert, WholeTextIsOneUndoStepAndKeepsBookmarks) {
    tables("[Swap]\n97=98\n98=97\n");
    fill(doc, "abba\n\tab\n\ncab");
    setBookmark(doc, 1, true);
    choice.table = "Swap";
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(textOf(doc), "baab\n\tba\n\ncba");
    EXPECT_TRUE(isBookmarked(doc, 1));
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Convert Text");
    undo(doc);
    EXPECT_EQ(textOf(doc), "abba\n\tab\n\ncab");
    EXPECT_TRUE(isBookmarked(doc, 1));
    EXPECT_TRUE(doc.undo.undo.empty());
}

TEST_F(Convert, SelectedTextOnly) {
    fill(doc, "\x82t\x82\n\x82\x82\x82\x82");
    choice = {ConvertKind::OemToAnsi, true, ""};
    EXPECT_EQ(convert(), 0);
    select(makePos(2, 0), makePos(1, 1), SelMode::Char);
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(textOf(doc), "\x82t\xE9\n\xE9\x82\x82\x82");
    undo(doc);
    select(makePos(1, 0), makePos(3, 1), SelMode::Column);
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(textOf(doc), "\x82t\xE9\n\x82\xE9\xE9\x82");
    undo(doc);
    EXPECT_EQ(textOf(doc), "\x82t\x82\n\x82\x82\x82\x82");
    // A selection that begins past the end of its line is undone from the line's end.
    select(makePos(6, 0), makePos(2, 1), SelMode::Char);
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(textOf(doc), "\x82t\x82\n\xE9\xE9\x82\x82");
    undo(doc);
    EXPECT_EQ(textOf(doc), "\x82t\x82\n\x82\x82\x82\x82");
}

}  // namespace
}  // namespace zol::test
