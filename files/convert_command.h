// The "ConvertText" command: the user picks a table and a scope, the text is recoded.
#pragma once
#include <string>
#include <vector>

#include "engine/command_table.h"

namespace zol {

enum class ConvertKind { User = 1, OemToAnsi = 2, AnsiToOem = 3 };

// What the user chose last; the dialog opens with it.
struct ConvertChoice {
    ConvertKind kind = ConvertKind::User;
    bool selectedOnly = false;
    std::string table;  // section of "TEXT.CNV" for ConvertKind::User
};

// The two dialogs, supplied by the front end. Without one installed the command is
// cancelled, as a question without a window is.
class ConvertChooser {
public:
    virtual ~ConvertChooser() = default;
    // "Convert Text": kind and scope, starting from choice. False on cancel.
    virtual bool chooseKind(ConvertChoice& choice) = 0;
    // "Convert Table": one of the table names (picked starts as the last one). False
    // on cancel.
    virtual bool chooseTable(const std::vector<std::string>& names, std::string& picked) = 0;
};
void setConvertChooser(ConvertChooser* chooser);
ConvertChoice& lastConvertChoice();

int cmdConvertText(Document& doc, const CommandCall& call);
// Puts the handler into the command table.
void installConvertCommand();

}  // namespace zol
