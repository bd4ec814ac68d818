// The user's tools (section "UserTools" of the settings) and external help files
// (section "UserHelp"): the lists, and their load and save routines, which the
// settings store calls as the owner of the two sections.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// Which documents are saved before a tool runs ("SaveFile%d").
enum SaveBeforeRun : int { kSaveNothing = 0, kSaveActive = 1, kSaveAll = 2 };
// How path macros are quoted for the argument splitter ("SendArgAsShortFileName%d"):
// where a path was passed in its short form, it is quoted instead.
enum QuoteMode : int { kQuoteWithBlanks = 0, kQuoteNever = 1, kQuoteAlways = 2 };

struct UserTool {
    std::string menuText;       // never empty in a loaded list
    std::string pathName;       // never empty in a loaded list
    std::string arguments;      // with $(...) macros
    std::string initialDir;     // may start with "$(ProgDir)"
    bool askArguments = false;
    bool captureOutput = false;
    bool hideWindow = false;    // no meaning here: tools run without a console window
    int saveFile = kSaveActive; // kept as read; 0 none, 1 the active document, above 1 all
    bool promptBeforeSave = false;
    int quoteMode = kQuoteWithBlanks;
};

struct UserTools {
    std::vector<UserTool> tools;  // menu order, at most toolmsg::kMaxTools
    // Records the section held when it was last read or written; saving a shorter
    // list removes those, and never touches a record after a gap.
    size_t storedCount = 0;
};

struct HelpEntry {
    std::string menuString;
    std::string helpFile;
};

struct UserHelp {
    std::string contextHelpFile;
    std::vector<HelpEntry> entries;  // at most toolmsg::kMaxHelpEntries
    size_t storedCount = 0;
};

UserTools& userTools();
UserHelp& userHelp();

// Loading stops at the first record whose menu text or program is empty, so the list
// has no gaps; values are cut to their buffers, booleans keep bit 0, a quoting mode
// other than 0, 1 or 2 becomes 0.
void loadUserTools(std::string_view section, std::string_view file);
void saveUserTools(std::string_view section, std::string_view file);
void loadUserHelp(std::string_view section, std::string_view file);
void saveUserHelp(std::string_view section, std::string_view file);

}  // namespace zol
