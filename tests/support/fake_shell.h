// A shell without windows that keeps what the engine tells the user and answers its
// questions and dialogs as the test prepared them.
#pragma once
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/shell.h"

namespace zol::test {

class FakeShell : public Shell {
public:
    void message(std::string_view text) override;
    Answer ask(std::string_view text, bool withCancel) override;
    void statusMessage(std::string_view text) override;
    ClipboardData getClipboard() override { return clip; }
    void setClipboard(const ClipboardData& data) override { clip = data; }
    bool askMacroName(std::string& name) override;
    FindDialogResult findDialog(FindDialogData& data, bool replace) override;
    bool askNumber(std::string_view prompt, int& value) override;
    int chooseCharacter(std::string_view) override { return character.value_or(-1); }
    bool openFile(const std::string& path) override;
    ReplacePromptAnswer replacePrompt(Document& doc) override;

    // Message boxes, questions, status-bar texts and files opened, in order.
    std::vector<std::string> messages, questions, status, opened;
    // Answers given in order; once they run out `answer`, and without one the safe
    // default: Cancel where it is offered, else No.
    std::deque<Answer> answers;
    std::optional<Answer> answer;
    ClipboardData clip;

    // Recording a macro: each suggested name is kept; macroName replaces it when set.
    std::vector<std::string> suggestions;
    std::string macroName;
    bool cancelNaming = false;

    // The Find and Replace dialogs: what they showed, and what the user then chose.
    FindDialogData findShown, findChoice;
    bool findWasReplace = false;
    FindDialogResult findResult = FindDialogResult::Cancel;
    // The go-to dialogs and the symbol table: what the user typed or chose; without it
    // they are cancelled.
    std::optional<int> number, character;
    // The question before each replacement: the text selected when it was asked, and
    // the answers to give in order (then Cancel).
    std::vector<std::string> prompted;
    std::deque<ReplacePromptAnswer> promptAnswers;
};

}  // namespace zol::test
