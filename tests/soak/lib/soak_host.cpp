#include "tests/soak/lib/soak_host.h"

namespace zol::soak {

void SoakShell::message(std::string_view text) {
    ++messages;
    lastMessage = text;
}

FindDialogResult SoakShell::findDialog(FindDialogData& data, bool) {
    const FindDialogResult result = findResult;
    if (result != FindDialogResult::Cancel) data = findChoice;
    findResult = FindDialogResult::Cancel;
    return result;
}

bool SoakShell::askNumber(std::string_view, int& value) {
    if (number <= 0) return false;
    value = number;
    number = 0;
    return true;
}

bool SoakConverter::chooseKind(ConvertChoice& choice) {
    choice.kind = kind;
    choice.selectedOnly = selectedOnly;
    return true;
}

}  // namespace zol::soak
