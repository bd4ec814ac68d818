// Reading "syntax.hgl": the grammar's corrections, slots and file matching, colours,
// bad files, and writing the file back through the editing copy.
#include <gtest/gtest.h>

#include <filesystem>

#include "syntax/edit_copy.h"
#include "tests/syntax/syntax_fixture.h"

namespace zol::test {
namespace {

std::string sections(int n, std::string_view body) {
    std::string s;
    for (int i = 1; i <= n; ++i) s += "[L" + std::to_string(i) + "]\n" + std::string(body) + "\n";
    return s;
}

TEST(SyntaxLoad, PatternsAndFlags) {
    SyntaxHighlight d = defOf("Extensions=pas inc\n");
    EXPECT_EQ(d.pattern, "*.pas;*.inc");
    EXPECT_EQ(defOf("FilePattern=*.C;*.H\nExtensions=x\n").pattern, "*.c;*.h");
    EXPECT_EQ(defOf("FilePattern=" + std::string(100, 'a') + "\n").pattern.size(), kPatternSize - 1);

    EXPECT_TRUE(defOf("CaseSensitive=Yes\n").ignoreCase());
    EXPECT_TRUE(defOf("").ignoreCase());
    EXPECT_FALSE(defOf("CaseSensitive=yes\n").ignoreCase());
    EXPECT_FALSE(defOf("CaseSensitive=1\n").ignoreCase());
    EXPECT_EQ(defOf("Cobol=yes\nLineNumbers=1\nFortranComment=true\n").flags, kIgnoreCase | kCobol | kLineNumbers);
}

TEST(SyntaxLoad, NumbersAreCorrected) {
    EXPECT_EQ(defOf("CobolCommentPos=1000\n").cobolCommentPos, 0);
    EXPECT_EQ(defOf("CobolCommentPos=-3\n").cobolCommentPos, 0);
    EXPECT_EQ(defOf("CobolCommentPos=999\n").cobolCommentPos, 999);
    EXPECT_EQ(defOf("MaxLineLen=-5\n").maxLineLen, 0);
    EXPECT_EQ(defOf("MaxLineLen=5000\n").maxLineLen, 5000);  // no upper bound, on purpose
    EXPECT_EQ(defOf("MaxLineLen=abc\n").maxLineLen, 0);

    SyntaxHighlight d = defOf("ColorKeyword=17\nColorComment=16\nColorString=-1\nColorNumber=x\n");
    EXPECT_EQ(d.colour[kColKeyword], 0);
    EXPECT_EQ(d.colour[kColComment], 16);
    EXPECT_EQ(d.colour[kColString], 0);
    EXPECT_EQ(d.colour[kColNumber], 0);
    EXPECT_EQ(d.colour[kColLineNumbers], 8);
}

TEST(SyntaxLoad, CommentsAndCharacterSets) {
    SyntaxHighlight d = defOf("MultiComment=(* *)\nLineComment1=REM\xA0\nLineComment2=;;;;;\n");
    EXPECT_EQ(std::string(d.multiOpen, 2), "(*");
    EXPECT_EQ(std::string(d.multiClose, 2), "*)");
    EXPECT_TRUE(d.cls('(') & kClsMultiComment);
    EXPECT_STREQ(d.lineComment1, "REM ");
    EXPECT_STREQ(d.lineComment2, "");  // five characters are too many
    EXPECT_TRUE(d.cls('r') & kClsLineComment);  // case ignored: both forms
    EXPECT_TRUE(d.cls('R') & kClsLineComment);
    EXPECT_FALSE(defOf("CaseSensitive=yes\nLineComment1=REM\n").cls('r') & kClsLineComment);
    EXPECT_EQ(defOf("MultiComment=/*\n").multiOpen[0], 0);

    d = defOf("OpenCloseDelim=([{ )]\nWords=a-c_\nNumbers=0-9.\nDelimiters=,;\nHTML=<>[\n");
    EXPECT_EQ(d.pairOf['('], ')');
    EXPECT_EQ(d.pairOf[']'], '[');
    EXPECT_EQ(d.pairOf['{'], 0);
    EXPECT_TRUE((d.cls('b') & kClsWord) && (d.cls('_') & kClsWord));
    EXPECT_FALSE(d.cls('d') & kClsWord);
    EXPECT_TRUE(d.cls('.') & kClsNumber);
    EXPECT_TRUE((d.cls('<') & kClsTagOpen) && (d.cls('>') & kClsTagClose));
    EXPECT_FALSE(d.cls('[') & (kClsTagOpen | kClsTagClose));
}

TEST(SyntaxLoad, KeywordListsNeedWholeWords) {
    SyntaxHighlight d = defOf("Keyword3=forint\nKeyword2=doi\nKeyword28=" + std::string(56, 'k') + "\n");
    EXPECT_EQ(d.keywords[3], "forint");
    EXPECT_EQ(d.keywords[2], "");
    EXPECT_EQ(d.keywords[28].size(), 56u);
    EXPECT_EQ(defOf("Keyword3=fori\n").keywords[3], "");
}

TEST(SyntaxLoad, SlotsAndFileMatching) {
    SyntaxHighlightTable t;
    const std::string path = writeScratch("many.hgl", "[First]\nFilePattern=*.h\n[Second]\nExtensions=h c\n" + sections(28, "FilePattern=*.zz"));
    EXPECT_EQ(loadDefinitions(t, path), kSyntaxSlots);
    EXPECT_EQ(definitionAt(t, 2)->name, "Second");
    EXPECT_EQ(definitionAt(t, 20)->name, "L18");
    EXPECT_EQ(definitionAt(t, 0), nullptr);
    EXPECT_EQ(definitionAt(t, 21), nullptr);
    EXPECT_EQ(findDefinitionForFile(t, "/src/MAIN.H"), 1);
    EXPECT_EQ(findDefinitionForFile(t, "C:\\src\\main.c"), 2);
    EXPECT_EQ(findDefinitionForFile(t, "main.cpp"), 0);
    EXPECT_EQ(findDefinitionForFile(t, "x.zz"), 3);

    EXPECT_TRUE(patternMatches("makefile;*.mk", "Makefile"));
    EXPECT_FALSE(patternMatches("makefile", "makefile.bak"));
    EXPECT_FALSE(patternMatches("*.c", "c"));
    EXPECT_TRUE(patternMatches("*.*", "a.b"));
    EXPECT_FALSE(patternMatches("", "a"));

    // A new load forgets the old definitions.
    EXPECT_EQ(loadDefinitions(t, writeScratch("two.hgl", "[Only]\n")), 1);
    EXPECT_EQ(definitionAt(t, 2), nullptr);
}

TEST(SyntaxLoad, BadFilesGiveWhatTheyCan) {
    SyntaxHighlightTable t;
    EXPECT_EQ(loadDefinitions(t, scratchDir() + "missing.hgl"), 0);
    EXPECT_EQ(loadDefinitions(t, writeScratch("empty.hgl", "")), 0);
    std::string binary;
    for (int i = 0; i < 4096; ++i) binary += static_cast<char>((i * 7919) & 0xFF);
    loadDefinitions(t, writeScratch("binary.hgl", binary));
    // Ten megabytes: one section with a huge keyword list and endless junk lines.
    std::string big = "[Big]\nFilePattern=*.big\nKeyword4=" + std::string(3000000, 'w') + "\n";
    while (big.size() < 10'000'000) big += "junk line without a key\n";
    big += "ColorKeyword=10\n";
    ASSERT_EQ(loadDefinitions(t, writeScratch("big.hgl", big)), 1);
    EXPECT_EQ(definitionAt(t, 1)->keywords[4], "");  // cut to the value buffer: 1023 is no multiple of 4
    EXPECT_EQ(definitionAt(t, 1)->colour[kColKeyword], 10);
}

TEST(SyntaxColours, PaletteAndSystemColours) {
    SyntaxHighlightTable t;
    loadDefinitions(t, writeScratch("col.hgl",
                                    "[TextOnly]\nColorText=13\nColorLineNumbers=0\n"
                                    "[Both]\nColorText=13\nColorBackground=16\nColorComment=3\nColorKeyword=10\n"));
    EXPECT_EQ(textColour(t, 1), std::nullopt);
    EXPECT_EQ(backgroundColour(t, 1), std::nullopt);
    EXPECT_EQ(lineNumberColour(t, 1), std::nullopt);
    EXPECT_EQ(textColour(t, 2), (Rgb{255, 0, 0}));
    EXPECT_EQ(backgroundColour(t, 2), (Rgb{255, 255, 255}));
    EXPECT_EQ(lineNumberColour(t, 2), (Rgb{128, 128, 128}));
    EXPECT_EQ(textColour(t, 0), std::nullopt);
    EXPECT_TRUE(isCommentColour(t, 2, 0x33));
    EXPECT_TRUE(isKeywordColour(t, 2, 10));
    EXPECT_FALSE(isKeywordColour(t, 2, 3));
    EXPECT_FALSE(isCommentColour(t, 0, 0));
}

TEST(SyntaxSave, LoadSaveLoadKeepsTheShippedTables) {
    for (const char* file : {"syntax.hgl", "syntax_more.hgl"}) {
        const std::string src = std::string(ZOLDER_SOURCE_DIR) + "/data/" + file;
        const std::string copy = scratchDir() + file;
        std::filesystem::copy_file(src, copy, std::filesystem::copy_options::overwrite_existing);
        flushProfileCache();
        SyntaxHighlightTable before, after;
        ASSERT_EQ(loadDefinitions(before, copy), kSyntaxSlots);
        const std::vector<SyntaxEditLanguage> langs = readEditCopy(copy);
        ASSERT_TRUE(saveDefinitions(after, copy, langs));
        for (int s = 1; s <= kSyntaxSlots; ++s) {
            EXPECT_TRUE(*definitionAt(before, s) == *definitionAt(after, s)) << file << " " << definitionAt(before, s)->name;
            // What the definition dialog previews is what the file loads.
            EXPECT_TRUE(definitionOf(langs[s - 1]) == *definitionAt(after, s)) << file << " " << langs[s - 1].name;
        }
    }
}

// The dialog's field holds seven characters: a longer comment pair must not come back
// from a save without its closer.
TEST(SyntaxSave, ALongCommentPairSurvivesTheDialogsField) {
    const std::string path = writeScratch("pair.hgl", "[Long]\nMultiComment=/*-------- --------*/\n");
    const std::vector<SyntaxEditLanguage> langs = readEditCopy(path);
    ASSERT_EQ(langs.size(), 1u);
    EXPECT_EQ(langs[0].multiComment, "/* --");
    SyntaxHighlightTable t;
    ASSERT_TRUE(saveDefinitions(t, path, langs));
    ASSERT_NE(definitionAt(t, 1), nullptr);
    EXPECT_EQ(std::string(definitionAt(t, 1)->multiOpen, 2), "/*");
    EXPECT_EQ(std::string(definitionAt(t, 1)->multiClose, 2), "--");
}

// A value cut to its field loses the blanks it then ends in, as the file would.
TEST(SyntaxSave, AValueCutToItsFieldReadsBackTheSame) {
    const struct {
        const char* key;
        std::string SyntaxEditLanguage::*field;
        size_t room;  // characters the field holds
    } rows[] = {
        {"Words", &SyntaxEditLanguage::words, 23},
        {"FilePattern", &SyntaxEditLanguage::pattern, 63},
    };
    for (const auto& row : rows) {
        const std::string value = "*.a" + std::string(row.room - 4, 'b') + "\t*.c";
        const std::string path = writeScratch("cut.hgl", std::string("[Cut]\n") + row.key + "=" + value + "\n");
        const std::vector<SyntaxEditLanguage> langs = readEditCopy(path);
        ASSERT_EQ(langs.size(), 1u);
        EXPECT_EQ(langs[0].*row.field, "*.a" + std::string(row.room - 4, 'b')) << row.key;
        SyntaxHighlightTable t;
        ASSERT_TRUE(saveDefinitions(t, path, langs));
        EXPECT_EQ(readEditCopy(path)[0].*row.field, langs[0].*row.field) << row.key;
    }
    // So does a language's name, which is its section's: the save must find the section
    // it writes again for every key, or the keys go to sections of their own.
    const std::string name = "N" + std::string(61, 'n');
    const std::string path = writeScratch("cut.hgl", "[" + name + "\tX]\nFilePattern=*.n\nWords=a-z\n");
    const std::vector<SyntaxEditLanguage> langs = readEditCopy(path);
    ASSERT_EQ(langs.size(), 1u);
    EXPECT_EQ(langs[0].name, name);
    SyntaxHighlightTable t;
    ASSERT_TRUE(saveDefinitions(t, path, langs));
    const std::vector<SyntaxEditLanguage> again = readEditCopy(path);
    ASSERT_EQ(again.size(), 1u);
    EXPECT_EQ(again[0].name, name);
    EXPECT_EQ(again[0].words, "a-z");

    // Two names alike up to the field's end would be saved as one section.
    const std::string twins = writeScratch("cut.hgl", "[" + name + "nA]\nFilePattern=*.a\n[" + name + "nB]\nFilePattern=*.b\n");
    const std::vector<SyntaxEditLanguage> both = readEditCopy(twins);
    ASSERT_EQ(both.size(), 2u);
    EXPECT_EQ(both[0].name, name + "n");
    EXPECT_EQ(both[1].name, name.substr(0, 61) + "~2");
    ASSERT_TRUE(saveDefinitions(t, twins, both));
    const std::vector<SyntaxEditLanguage> kept = readEditCopy(twins);
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[1].name, both[1].name);
    EXPECT_EQ(kept[1].pattern, "*.b");
}

// A value that itself stands in quotes, which reading takes off, is saved in another
// pair (found by fuzzing the saver).
TEST(SyntaxSave, AValueInQuotesKeepsThem) {
    const std::string path = writeScratch("quotes.hgl", "[Q]\nWords=\"\"a-z\"\"\nKeyword3=\"'a'\"\n");
    const std::vector<SyntaxEditLanguage> langs = readEditCopy(path);
    ASSERT_EQ(langs.size(), 1u);
    ASSERT_EQ(langs[0].words, "\"a-z\"");
    ASSERT_EQ(langs[0].keywords[3], "'a'");
    SyntaxHighlightTable t;
    ASSERT_TRUE(saveDefinitions(t, path, langs));
    const std::vector<SyntaxEditLanguage> again = readEditCopy(path);
    EXPECT_EQ(again[0].words, langs[0].words);
    EXPECT_EQ(again[0].keywords[3], langs[0].keywords[3]);
}

TEST(SyntaxSave, WritesTheDialogsForm) {
    const std::string path = writeScratch("save.hgl", "; kept\n[Old]\nFilePattern=*.old\n");
    std::vector<SyntaxEditLanguage> langs;
    ASSERT_TRUE(addLanguage(langs, "Batch"));
    langs[0].pattern = "*.bat";
    langs[0].lineComment1 = "REM ";
    langs[0].keywords[20] = std::string(20, 'x');
    SyntaxHighlightTable t;
    ASSERT_TRUE(saveDefinitions(t, path, langs));
    EXPECT_FALSE(profileSectionExists("Old", path));
    EXPECT_EQ(getProfileString("Batch", "CaseSensitive", "", path), "No");
    EXPECT_EQ(getProfileString("Batch", "LineComment1", "", path), "REM\xA0");
    EXPECT_TRUE(findProfileString("Batch", "Keyword16", path).has_value());
    EXPECT_TRUE(findProfileString("Batch", "Keyword20", path).has_value());
    EXPECT_FALSE(findProfileString("Batch", "Keyword17", path).has_value());
    ASSERT_NE(definitionAt(t, 1), nullptr);
    EXPECT_STREQ(definitionAt(t, 1)->lineComment1, "REM ");
}

}  // namespace
}  // namespace zol::test
