// The find and replace commands of the command table, and the search subsystem's
// start-up.
#pragma once
#include <string>
#include <vector>

#include "engine/shell.h"

namespace zol {

// Installs the command handlers and hands over the history lists that the settings
// store loads and saves (null: kept in memory only).
void initSearch(std::vector<std::string>* findHistory, std::vector<std::string>* replaceHistory);

// What "FindNext" repeats: the last search made by a find or replace command.
struct LastSearch {
    bool valid = false;
    bool replace = false;  // repeat as a replacement
    FindDialogData data;
};
const LastSearch& lastSearch();
void forgetLastSearch();

}  // namespace zol
