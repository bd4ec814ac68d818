#include <gtest/gtest.h>

#include <random>

#include "engine/executor.h"
#include "script/macro_text.h"

namespace zol {
namespace {

uint16_t id(const char* name) { return commandId(name, false); }

std::vector<MacroStep> typed(std::string_view text, uint16_t command = 2) {
    std::vector<MacroStep> steps;
    for (char c : text) steps.push_back({command, static_cast<unsigned char>(c)});
    return steps;
}

std::string textOf(const std::vector<MacroStep>& steps) {
    std::string out;
    EXPECT_EQ(stepsToText(steps, out), MacroTextStatus::Ok);
    return out;
}

TEST(MacroText, RunsOfTypedCharactersShareALine) {
    EXPECT_EQ(textOf(typed("ab\tc")), "InsertText \"ab\\tc\"\r\n");
    const std::string all = std::string("\a\b\t\n\v\f\r\"\\", 9) + std::string(1, '\0') + "\x1f\x7f\xe9 ";
    EXPECT_EQ(textOf(typed(all)),
              "InsertText \"\\a\\b\\t\\n\\v\\f\\r\\\"\\\\\\x00\\x1f\x7f\xe9 \"\r\n");

    const std::string text = textOf(typed(std::string(200, 'z')));
    EXPECT_EQ(text, "InsertText \"" + std::string(127, 'z') + "\"\r\nInsertText \"" + std::string(73, 'z') + "\"\r\n");
}

TEST(MacroText, OtherStepsShowTheirParameterByKind) {
    std::vector<MacroStep> steps = typed("if");
    steps.push_back({id("CursorLeft"), 0});
    steps.push_back({id("GoToLineNum"), 65535});
    steps.push_back({id("CommentBlock"), '"'});
    for (MacroStep s : typed("ab", 236)) steps.push_back(s);
    for (MacroStep s : typed("c", 237)) steps.push_back(s);
    steps.push_back({3, 0});        // two names share this id; the first is shown
    steps.push_back({440 + 6, 0});  // no command has this id: left out
    for (MacroStep s : typed("x")) steps.push_back(s);
    EXPECT_EQ(textOf(steps),
              "InsertText \"if\"\r\nCursorLeft\r\nGoToLineNum 65535\r\nCommentBlock \"\\\"\"\r\n"
              "Param1 \"ab\"\r\nParam2 \"c\"\r\nPrevTabPos\r\nInsertText \"x\"\r\n");
}

TEST(MacroText, StopsBeforeReaching32000Bytes) {
    // "CursorLeft\r\n" is 12 bytes, "CursorUp\r\n" 10: 2665 * 12 + 10 = 31990.
    std::vector<MacroStep> steps(2665, MacroStep{id("CursorLeft"), 0});
    steps.push_back({id("CursorUp"), 0});
    std::string out;
    ASSERT_EQ(stepsToText(steps, out), MacroTextStatus::Ok);
    EXPECT_EQ(out.size(), 31990u);
    steps.push_back({id("CursorUp"), 0});
    EXPECT_EQ(stepsToText(steps, out), MacroTextStatus::TooLarge);
    EXPECT_TRUE(out.empty());
}

TEST(MacroText, TextReadsBackAsTheSameSteps) {
    std::mt19937 rng(7);
    const uint16_t ids[] = {2, 2, 2, 236, 237, id("NewLine"), id("GoToColumnNum"), id("UncommentBlock"), id("Undo")};
    for (int round = 0; round < 50; ++round) {
        std::vector<MacroStep> steps;
        for (int i = 0; i < 300; ++i) {
            const uint16_t command = ids[rng() % std::size(ids)];
            const ParamKind kind = command == 2 ? ParamKind::Char : commandParamKind(command);
            const uint16_t param = kind == ParamKind::Char     ? static_cast<uint16_t>(rng() % 256)
                                   : kind == ParamKind::Number ? static_cast<uint16_t>(rng())
                                                               : 0;
            steps.push_back({command, param});
        }
        const std::string text = textOf(steps);
        std::vector<MacroStep> back;
        ASSERT_EQ(textToSteps(text, back).line, 0) << textToSteps(text, back).message;
        ASSERT_EQ(back, steps);
        EXPECT_EQ(textOf(back), text);
    }
}

TEST(MacroText, ParserTakesWhatPeopleWrite) {
    std::vector<MacroStep> steps;
    const MacroParseError err =
        textToSteps("\n  cursorleft  \n\r\nINSERTTEXT \"\"\ninserttext\t\"a\\x4A\"\nInsertChar \"q\"\n"
                    "Param1 \"x\" \r\ngotolinenum 007\nBackTab", steps);
    ASSERT_EQ(err.line, 0) << err.message;
    EXPECT_EQ(steps, (std::vector<MacroStep>{{30, 0}, {2, 'a'}, {2, 'J'}, {2, 'q'}, {236, 'x'}, {436, 7}, {3, 0}}));
}

TEST(MacroText, BadLinesAreReportedByNumberAndChangeNothing) {
    const std::pair<const char*, std::string> cases[] = {
        {"CursorLeft\r\nNoSuchCommand\r\n", "Line 2: unknown command"},
        {"\r\n\r\nInsertText abc", "Line 3: a string in double quotes is expected"},
        {"InsertText \"abc", "Line 1: the string has no closing double quote"},
        {"InsertText \"abc\\\"", "Line 1: the string has no closing double quote"},
        {"InsertText \"a\\q\"", "Line 1: unknown escape sequence in the string"},
        {"InsertText \"a\\x4\"", "Line 1: unknown escape sequence in the string"},
        {"InsertText \"a\" b", "Line 1: unexpected text after the command"},
        {"CursorLeft 3", "Line 1: this command takes no argument"},
        {"GoToLineNum", "Line 1: a number from 0 to 65535 is expected"},
        {"GoToLineNum 65536", "Line 1: a number from 0 to 65535 is expected"},
        {"GoToLineNum -1", "Line 1: a number from 0 to 65535 is expected"},
        {"CommentBlock \"ab\"", "Line 1: this command takes exactly one character"},
        {"CommentBlock \"\"", "Line 1: this command takes exactly one character"},
    };
    for (const auto& [text, message] : cases) {
        std::vector<MacroStep> steps{{1, 0}};
        const MacroParseError err = textToSteps(text, steps);
        EXPECT_EQ(err.message, message) << text;
        EXPECT_EQ(steps, (std::vector<MacroStep>{{1, 0}})) << text;
    }
}

}  // namespace
}  // namespace zol
