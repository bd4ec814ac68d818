// Built-in and user conversion tables and the "ConvertText" command.
#include <set>
#include <string>

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

constexpr uint16_t kConvertText = 207, kUndo = 120;

class ScriptedChooser final : public ConvertChooser {
public:
    bool chooseKind(ConvertChoice& c) override {
        ++kindAsked;
        seen = c;
        if (cancel) return false;
        c.kind = kind;
        c.selectedOnly = selectedOnly;
        return true;
    }
    bool chooseTable(const std::vector<std::string>& names, std::string& picked) override {
        offered = names;
        picked = table;
        return !table.empty();
    }
    ConvertKind kind = ConvertKind::User;
    bool selectedOnly = false, cancel = false;
    std::string table;
    std::vector<std::string> offered;
    ConvertChoice seen;
    int kindAsked = 0;
};

class Convert : public FilesTest {
protected:
    void SetUp() override {
        FilesTest::SetUp();
        setHomeDir(dir_);
        flushProfileCache();
        installConvertCommand();
        setConvertChooser(&chooser);
        lastConvertChoice() = ConvertChoice{};
    }
    void TearDown() override {
        setConvertChooser(nullptr);
        flushProfileCache();
        FilesTest::TearDown();
    }
    int convert() { return execute(doc, kConvertText); }
    void cnv(std::string_view text) {
        put("TEXT.CNV", text);
        flushProfileCache();
    }

    ScriptedChooser chooser;
    Document doc;
};

TEST(CodePageTables, OemAndAnsiAgreeWhereBothHaveTheCharacter) {
    const ConvertTable toAnsi = oemToAnsiTable(), toOem = ansiToOemTable();
    EXPECT_EQ(toAnsi[0x82], 0xE9);  // é
    EXPECT_EQ(toAnsi[0x9C], 0xA3);  // £
    EXPECT_EQ(toAnsi[0xE1], 0xDF);  // ß
    EXPECT_EQ(toOem[0xC4], 0x8E);   // Ä
    EXPECT_EQ(toOem[0x80], 'E');    // € has no OEM twin
    EXPECT_EQ(toAnsi[0xC9], '+');   // box corner
    EXPECT_EQ(toAnsi[0xBA], '|');
    for (int c = 0; c < 0x80; ++c) ASSERT_EQ(toAnsi[c], c) << c;
    // Every character both code pages have (54 of them) goes there and back.
    int shared = 0;
    for (int c = 0x80; c < 0x100; ++c) {
        if (ansiToUnicode(toAnsi[c]) != oemToUnicode(static_cast<uint8_t>(c))) continue;
        ++shared;
        EXPECT_EQ(toOem[toAnsi[c]], c) << c;
    }
    EXPECT_EQ(shared, 54);
}

TEST(CodePageTables, ControlBytesCanNeitherBeMadeNorUnmade) {
    ConvertTable t = identityTable();
    t['A'] = '\t';
    t[200] = 0;
    t['\n'] = 'x';
    t['\r'] = '\n';
    t['b'] = 'c';
    protectControlBytes(t);
    EXPECT_EQ(t['A'], 'A');
    EXPECT_EQ(t[200], 200);
    EXPECT_EQ(t['\n'], '\n');
    EXPECT_EQ(t['\r'], '\r');
    EXPECT_EQ(t['b'], 'c');
}

TEST_F(Convert, UserTablesTolerateBadKeysAndValues) {
    cnv("[Odd]\n65=9\n66=0\n67=300\n68=-5\n69=abc\nxyz=70\n71=72\n72=71\n200=0\n[Second]\n1=2\n");
    std::vector<std::string> names;
    ASSERT_TRUE(userTableNames(path("TEXT.CNV"), names));
    EXPECT_EQ(names, (std::vector<std::string>{"Odd", "Second"}));
    ConvertTable t = userTable(path("TEXT.CNV"), "Odd");
    protectControlBytes(t);
    for (int c : {int{'A'}, int{'B'}, int{'C'}, int{'D'}, int{'E'}, 200}) EXPECT_EQ(t[static_cast<size_t>(c)], c) << c;
    EXPECT_EQ(t['G'], 'H');
    EXPECT_EQ(t['H'], 'G');

    EXPECT_FALSE(userTableNames(path("missing.cnv"), names));
    cnv("");
    EXPECT_TRUE(userTableNames(path("TEXT.CNV"), names));
    EXPECT_TRUE(names.empty());
}

TEST_F(Convert, MissingOrEmptyTableFileChangesNothing) {
    setLines(doc, {"ABC"});
    chooser.table = "Odd";
    EXPECT_EQ(convert(), 0);
    ASSERT_EQ(shell_.messages.size(), 1u);
    EXPECT_EQ(shell_.messages[0], filemsg::withFileName(filemsg::kCannotOpenTables, path("TEXT.CNV")));
    cnv("; nothing here\n");
    EXPECT_EQ(convert(), 0);
    EXPECT_EQ(shell_.messages.size(), 1u);
    EXPECT_TRUE(chooser.offered.empty());
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"ABC"}));
    EXPECT_FALSE(doc.modified);
}

TEST_F(Convert, WholeTextIsOneUndoStepAndKeepsBookmarks) {
    cnv("[Swap]\n97=98\n98=97\n");
    setLines(doc, {"abba", "\tab", "", "cab"});
    setBookmark(doc, 1, true);
    chooser.table = "Swap";
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"baab", "\tba", "", "cba"}));
    EXPECT_TRUE(doc.modified);
    EXPECT_TRUE(isBookmarked(doc, 1));
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Convert Text");
    execute(doc, kUndo);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"abba", "\tab", "", "cab"}));
    EXPECT_TRUE(doc.undo.undo.empty());
    // The dialog opens with what was chosen last.
    chooser.cancel = true;
    convert();
    EXPECT_EQ(chooser.seen.table, "Swap");
}

TEST_F(Convert, SelectedTextOnly) {
    setLines(doc, {"\x82t\x82", "\x82\x82\x82\x82"});
    chooser.kind = ConvertKind::OemToAnsi;
    chooser.selectedOnly = true;
    EXPECT_EQ(convert(), 0);
    EXPECT_EQ(linesOf(doc)[0], "\x82t\x82");

    doc.selExists = true;
    doc.selMode = SelMode::Char;
    doc.selAnchor = makePos(2, 0);
    doc.selEnd = makePos(1, 1);
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"\x82t\xE9", "\xE9\x82\x82\x82"}));
    execute(doc, kUndo);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"\x82t\x82", "\x82\x82\x82\x82"}));

    doc.selExists = true;
    doc.selMode = SelMode::Column;
    doc.selAnchor = makePos(1, 0);
    doc.selEnd = makePos(3, 1);
    ASSERT_EQ(convert(), 1);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"\x82t\xE9", "\x82\xE9\xE9\x82"}));
    execute(doc, kUndo);
    EXPECT_EQ(linesOf(doc), (std::vector<std::string>{"\x82t\x82", "\x82\x82\x82\x82"}));
}

TEST_F(Convert, ShippedTablesLoad) {
    const std::string shipped = std::string(ZOLDER_SOURCE_DIR) + "/data/TEXT.CNV";
    std::vector<std::string> names;
    ASSERT_TRUE(userTableNames(shipped, names));
    EXPECT_GE(names.size(), 2u);
    const ConvertTable upper = userTable(shipped, "Upper case (Windows-1252)");
    EXPECT_EQ(upper['q'], 'Q');
    EXPECT_EQ(upper[0xE9], 0xC9);
    EXPECT_EQ(upper['Q'], 'Q');
    const ConvertTable dos = userTable(shipped, "DOS (CP437) to ISO-8859-1");
    EXPECT_EQ(dos[0x81], 0xFC);
}

TEST_F(Convert, ReadOnlyDocumentIsLeftAlone) {
    setLines(doc, {"\x82"});
    doc.readOnly = true;
    chooser.kind = ConvertKind::OemToAnsi;
    EXPECT_EQ(convert(), 0);
    EXPECT_EQ(chooser.kindAsked, 0);
    EXPECT_EQ(linesOf(doc)[0], "\x82");
}

}  // namespace
}  // namespace zol::test
