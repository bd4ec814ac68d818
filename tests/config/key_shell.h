// A shell that records what the key map and the macros tell the user, and answers
// their questions as the test says.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "engine/shell.h"

namespace zol::test {

class KeyShell final : public Shell {
public:
    void message(std::string_view text) override { messages.emplace_back(text); }
    Answer ask(std::string_view text, bool) override {
        questions.emplace_back(text);
        return answer;
    }
    void statusMessage(std::string_view) override {}
    ClipboardData getClipboard() override { return {}; }
    void setClipboard(const ClipboardData&) override {}
    bool askMacroName(std::string& name) override {
        suggestions.push_back(name);
        if (!macroName.empty()) name = macroName;
        return !cancelNaming;
    }

    std::vector<std::string> messages, questions, suggestions;
    Answer answer = Answer::No;
    std::string macroName;  // replaces the suggestion when set
    bool cancelNaming = false;
};

}  // namespace zol::test
