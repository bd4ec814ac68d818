// What stands in for the user and the screen during a soak: a shell whose dialogs
// answer what the generator decided, a window per document that keeps its scroll
// position, and the code-page conversion's two dialogs.
#pragma once
#include <cstdint>
#include <string>

#include "engine/shell.h"
#include "files/convert_command.h"

namespace zol::soak {

class SoakShell final : public Shell {
public:
    void message(std::string_view text) override;
    Answer ask(std::string_view, bool withCancel) override { return withCancel ? Answer::Cancel : Answer::No; }
    void statusMessage(std::string_view) override {}
    ClipboardData getClipboard() override { return clip; }
    void setClipboard(const ClipboardData& data) override { clip = data; }
    FindDialogResult findDialog(FindDialogData& data, bool replace) override;
    bool askNumber(std::string_view, int& value) override;
    int chooseCharacter(std::string_view) override { return character; }

    ClipboardData clip;
    // The next Find or Replace dialog is answered with this choice, once.
    FindDialogData findChoice;
    FindDialogResult findResult = FindDialogResult::Cancel;
    int number = 0;       // the go-to dialogs' answer; 0 cancels
    int character = -1;   // the symbol table's answer; -1 cancels
    long messages = 0;    // message boxes shown
    std::string lastMessage;
};

class SoakView final : public EditorView {
public:
    explicit SoakView(int page) : page_(page) {}
    int pageLines() const override { return page_; }
    int32_t firstVisibleLine() const override { return first_; }
    void setFirstVisibleLine(int32_t line) override { first_ = line; }

private:
    int page_;
    int32_t first_ = 0;
};

// Answers "Convert Text" with the kind and scope it was given. User tables need a
// "TEXT.CNV" in the home folder, which a soak does not have, so only the two
// built-in directions are offered.
class SoakConverter final : public ConvertChooser {
public:
    bool chooseKind(ConvertChoice& choice) override;
    bool chooseTable(const std::vector<std::string>&, std::string&) override { return false; }
    ConvertKind kind = ConvertKind::OemToAnsi;
    bool selectedOnly = false;
};

}  // namespace zol::soak
