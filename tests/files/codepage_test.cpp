// Built-in and user conversion tables and the "ConvertText" command.
#include "engine/bookmarks.h"
#include "engine/executor.h"
#include "files/codepage.h"
#include "files/convert_command.h"
#include "files/messages.h"
#include "platform/paths.h"
#include "platform/profile.h"
#include "tests/files/files_fixture.h"

namespace zol::test {
namespace {

class ScriptedChooser final : public ConvertChooser {
public:
    bool chooseKind(ConvertChoice& c) override {
        c.kind = kind;
        c.selectedOnly = selectedOnly;
        return true;
    }
    bool chooseTable(const std::vector<std::string>&, std::string& picked) override {
        picked = table;
        return true;
    }
    ConvertKind kind = ConvertKind::User;
    bool selectedOnly = false;
    std::string table;
};

class Convert : public FilesTest {
protected:
    void SetUp() override {
        FilesTest::SetUp();
        setHomeDir(dir_);
        flushProfileCache();
        installConvertCommand();
        setConvertChooser(&chooser);
    }
    void TearDown() override {
        setConvertChooser(nullptr);
        flushProfileCache();
        FilesTest::TearDown();
    }
    int convert() { return execute(doc, 207); }
    void undo() { execute(doc, 120); }
    void cnv(std::string_view text) {
        put("TEXT.CNV", text);
        flushProfileCache();
    }
    void select(Pos a, Pos b, SelMode mode) {
        doc.selExists = true;
        doc.selMode = mode;
        doc.selAnchor = a;
        doc.selEnd = b;
    }

    ScriptedChooser chooser;
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

TEST_F(Convert, BadTableFilesAndEntriesChangeNothing) {
    setLines(doc, {"ABCDEGH\xC8"});
    chooser.table = "Odd";
    EXPECT_EQ(convert(), 0);
    EXPECT_EQ(shell_.messages, (std::vector<std::string>{filemsg::withFileName(filemsg::kCannotOpenTables,
                                                                               path("TEXT.CNV"))}));
    cnv("; no tables\n");
    EXPECT_EQ(convert(), 0);
    EXPECT_EQ(shell_.messages.size(), 1u);
    EXPECT_FALSE(doc.modified);

    // Tab made, zero, out of range, negative, not a number, garbage key.
    cnv("[Odd]\n65=9\n66=0\n67=300\n68=-5\n69=abc\nxyz=70\n71=72\n72=71\n200=0\n");
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(linesOf(doc)[0], "ABCDEHG\xC8");
}

TEST_F(Convert, WholeTextIsOneUndoStepAndKeepsBookmarks) {
    cnv("[Swap]\n97=98\n98=97\n");
    setLines(doc, {"abba", "\tab", "", "cab"});
    setBookmark(doc, 1, true);
    chooser.table = "Swap";
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"baab", "\tba", "", "cba"}));
    EXPECT_TRUE(isBookmarked(doc, 1));
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Convert Text");
    undo();
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"abba", "\tab", "", "cab"}));
    EXPECT_TRUE(doc.undo.undo.empty());
}

TEST_F(Convert, SelectedTextOnly) {
    const std::vector<std::string> before = {"\x82t\x82", "\x82\x82\x82\x82"};
    setLines(doc, before);
    chooser.kind = ConvertKind::OemToAnsi;
    chooser.selectedOnly = true;
    EXPECT_EQ(convert(), 0);
    select(makePos(2, 0), makePos(1, 1), SelMode::Char);
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"\x82t\xE9", "\xE9\x82\x82\x82"}));
    undo();
    select(makePos(1, 0), makePos(3, 1), SelMode::Column);
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"\x82t\xE9", "\x82\xE9\xE9\x82"}));
    undo();
    EXPECT_EQ(linesOf(doc), before);
}

TEST(ShippedTables, LoadAndConvert) {
    const std::string shipped = std::string(ZOLDER_SOURCE_DIR) + "/data/TEXT.CNV";
    std::vector<std::string> names;
    ASSERT_TRUE(userTableNames(shipped, names));
    EXPECT_GE(names.size(), 2u);
    const ConvertTable upper = userTable(shipped, "Upper case (Windows-1252)");
    EXPECT_EQ(upper['q'], 'Q');
    EXPECT_EQ(upper[0xE9], 0xC9);
    EXPECT_EQ(userTable(shipped, "DOS (CP437) to ISO-8859-1")[0x81], 0xFC);
}

}  // namespace
}  // namespace zol::test
