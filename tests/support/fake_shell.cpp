#include "tests/support/fake_shell.h"

#include "engine/selection.h"

namespace zol::test {

void FakeShell::message(std::string_view text) { messages.emplace_back(text); }

Answer FakeShell::ask(std::string_view text, bool withCancel) {
    questions.emplace_back(text);
    if (!answers.empty()) {
        const Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    if (answer) return *answer;
    return withCancel ? Answer::Cancel : Answer::No;
}

void FakeShell::statusMessage(std::string_view text) { status.emplace_back(text); }

bool FakeShell::askMacroName(std::string& name) {
    suggestions.push_back(name);
    if (!macroName.empty()) name = macroName;
    return !cancelNaming;
}

FindDialogResult FakeShell::findDialog(FindDialogData& data, bool replace) {
    findShown = data;
    findWasReplace = replace;
    if (findResult != FindDialogResult::Cancel) data = findChoice;
    return findResult;
}

bool FakeShell::askNumber(std::string_view, int& value) {
    if (!number) return false;
    value = *number;
    return true;
}

bool FakeShell::openFile(const std::string& path) {
    opened.push_back(path);
    return true;
}

ReplacePromptAnswer FakeShell::replacePrompt(Document& doc) {
    prompted.push_back(selectedText(doc));
    if (promptAnswers.empty()) return ReplacePromptAnswer::Cancel;
    const ReplacePromptAnswer a = promptAnswers.front();
    promptAnswers.pop_front();
    return a;
}

}  // namespace zol::test
