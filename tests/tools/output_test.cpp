// Output documents: how bytes become lines, stepping through their messages with the
// index rules, and where the message action finds the file a message names.
#include <gtest/gtest.h>

#include "config/settings.h"
#include "engine/executor.h"
#include "tests/support/documents.h"
#include "tests/tools/tool_app.h"
#include "tools/message_step.h"
#include "tools/output_document.h"

namespace zol::test {
namespace {

using OutputTest = ToolAppTest;

TEST_F(OutputTest, BytesBecomeLinesWhateverTheLineEndsAndWrites) {
    Document* out = openOutputDocument("Output - t", {dir_, ""});
    ASSERT_TRUE(out && out->outputWindow);
    OutputWriter w(*out);
    using namespace std::string_view_literals;
    for (std::string_view part : {"a\r"sv, "\nb\r"sv, "c\n\n"sv, "d"sv, "e\0f\n"sv, "tail"sv}) w.write(part);
    w.finish();
    w.write("dropped\n");
    EXPECT_EQ(linesOf(*out), (Lines{"a", "b", "c", "", "de f", "tail"}));
    EXPECT_FALSE(out->modified);
    EXPECT_TRUE(out->undo.undo.empty());
}

TEST_F(OutputTest, ALineWiderThanALineMayBeGoesOnInTheNext) {
    Document* out = openOutputDocument("Output - wide", {dir_, ""});
    OutputWriter w(*out);
    const std::string big(3200 * 3 + 5, 'x');
    for (size_t i = 0; i < big.size(); i += 1000) w.write(std::string_view(big).substr(i, 1000));
    w.write("\n" + std::string(3199, 'y') + "\tz\n");  // the tab ends at the limit
    w.finish();
    const Lines lines = linesOf(*out);
    std::vector<size_t> sizes;
    for (const std::string& l : lines) sizes.push_back(l.size());
    EXPECT_EQ(sizes, (std::vector<size_t>{3200, 3200, 3200, 5, 3200, 1}));
}

TEST_F(OutputTest, TheCursorFollowsOnlyFromTheLastLine) {
    Document* out = openOutputDocument("Output - f", {dir_, ""});
    OutputWriter w(*out);
    w.write("1\n2\n");
    EXPECT_EQ(out->cursor.line, 1);
    setCursor(*out, Pos{0, 0});
    w.write("3\n");
    EXPECT_EQ(out->cursor.line, 0);
}

TEST_F(OutputTest, AnOutputDocumentOfTheSameNameIsReusedUnlessBeingWritten) {
    Document* first = openOutputDocument("Output - r", {dir_, ""});
    OutputWriter(*first).write("old\n");
    Document* again = openOutputDocument("Output - r", {dir_, ""});
    EXPECT_EQ(again, first);
    EXPECT_EQ(linesOf(*again), (Lines{""}));
    OutputWriter busy(*again);
    EXPECT_NE(openOutputDocument("Output - r", {dir_, ""}), first);
}

class StepTest : public ToolAppTest {
protected:
    Document* output(const std::string& text) {
        Document* out = openOutputDocument("Output - s", {dir_, ""});
        OutputWriter w(*out);
        w.write(text);
        w.finish();
        return out;
    }
};

TEST_F(StepTest, NextAndPreviousFollowTheIndexRules) {
    put("a.c", "1\n2\n3\n");
    put("b.c", "1\n2\n3\n4\n");
    Document* out = output("junk\na.c(2): x\njunk\nb.c:3: y\njunk\n");
    EXPECT_EQ(messageIndex(*out), -1);
    struct Step {
        bool next;
        bool found;
        int32_t index;
        const char* file;
        int32_t line;
    };
    const Step steps[] = {
        {true, true, 1, "a.c", 1},   {true, true, 3, "b.c", 2},   {true, false, 5, nullptr, 0},
        {false, true, 3, "b.c", 2},  // from past the end the last line is looked at first
        {false, true, 1, "a.c", 1},  {false, false, 0, nullptr, 0}, {true, true, 1, "a.c", 1},
    };
    for (const Step& s : steps) {
        shell_.opened.clear();
        EXPECT_EQ(s.next ? nextMessage(*out) : prevMessage(*out), s.found);
        EXPECT_EQ(messageIndex(*out), s.index);
        if (!s.found) {
            EXPECT_TRUE(shell_.opened.empty());
            continue;
        }
        EXPECT_EQ(out->cursor.line, s.index);
        ASSERT_TRUE(active() && active()->hasFile);
        EXPECT_EQ(active()->fileName, dir_ + s.file);
        EXPECT_EQ(active()->cursor.line, s.line);
    }
}

// Stepping from a source document through real compiler output is in run_tool_test.cpp.
TEST_F(StepTest, WithoutAnOutputDocumentThereIsNothingToStep) {
    Document* plain = open("plain.txt", "a.c(2): not output\n");
    EXPECT_FALSE(nextMessage(*plain));
    EXPECT_TRUE(shell_.opened.empty());
    EXPECT_EQ(execute(*plain, Cmd::NextCompilerError), 0);
}

TEST_F(StepTest, TheMessageActionLooksInTheToolFolderTheDocumentFolderThenIncludeDirs) {
    const std::string work = dir_ + "work/", src = dir_ + "src/", inc = dir_ + "inc/";
    put("work/both.h", "w\n");
    put("src/both.h", "s\n");
    put("src/only_src.h", "s\n");
    put("inc/deep/only_inc.h", "1\n2\n3\n4\n5\n6\n7\n8\n");
    settings().includeDirs = " " + dir_ + "none ; " + inc + " ";
    Document* out = openOutputDocument("Output - m", {work, src});
    OutputWriter w(*out);
    w.write("both.h:1: x\nonly_src.h:1: x\ndeep/only_inc.h(8): W col(4)\nmissing.h:1: x\n" + inc +
            "deep/only_inc.h:2: x\n");
    w.finish();
    const std::pair<std::string, int32_t> expected[] = {
        {work + "both.h", 0}, {src + "only_src.h", 0}, {inc + "deep/only_inc.h", 7}, {"", 0}, {inc + "deep/only_inc.h", 1}};
    for (const auto& [file, line] : expected) {
        shell_.status.clear();
        ASSERT_TRUE(nextMessage(*out));
        if (file.empty()) {
            ASSERT_EQ(shell_.status.size(), 1u);
            EXPECT_EQ(shell_.status[0], "Cannot find the file 'missing.h' that the message names.");
            EXPECT_EQ(active()->fileName, inc + "deep/only_inc.h") << "nothing opened";
            continue;
        }
        EXPECT_EQ(active()->fileName, file);
        EXPECT_EQ(active()->cursor.line, line);
    }
    EXPECT_EQ(active()->cursor.col, 0);
    prevMessage(*out);
    prevMessage(*out);
    EXPECT_EQ(active()->cursor.col, 3) << "col(4) is the fourth column";
    settings().includeDirs.clear();
}

}  // namespace
}  // namespace zol::test
