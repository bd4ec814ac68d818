#include "tools/user_tools.h"

#include "platform/profile.h"
#include "tools/messages.h"

namespace zol {
namespace {

using namespace toolmsg;

std::string numbered(std::string_view key, size_t n) { return std::string(key) + std::to_string(n); }

bool readBool(std::string_view section, std::string_view key, size_t n, std::string_view file) {
    return getProfileInt(section, numbered(key, n), 0, file) & 1;
}

void writeBool(std::string_view section, std::string_view key, size_t n, bool on, std::string_view file) {
    writeProfileInt(section, numbered(key, n), on ? 1 : 0, file);
}

// The keys of one record, for removing it.
constexpr const char* kToolKeys[] = {"MenuText",      "PathName",   "Arguments", "InitialDir",       "AskArguments",
                                     "CaptureOutput", "HideWindow", "SaveFile",  "PromptBeforeSave", "SendArgAsShortFileName"};
constexpr const char* kHelpKeys[] = {"MenuString", "HelpFile"};

template <size_t N>
void removeRecords(std::string_view section, const char* const (&keys)[N], size_t from, size_t to, std::string_view file) {
    for (size_t n = from; n <= to; ++n)
        for (const char* key : keys)
            if (findProfileString(section, numbered(key, n), file)) writeProfileString(section, numbered(key, n), nullptr, file);
}

}  // namespace

UserTools& userTools() {
    static UserTools list;
    return list;
}

UserHelp& userHelp() {
    static UserHelp help;
    return help;
}

void loadUserTools(std::string_view section, std::string_view file) {
    UserTools& list = userTools();
    list.tools.clear();
    for (size_t n = 1; n <= kMaxTools; ++n) {
        UserTool t;
        t.menuText = getProfileString(section, numbered("MenuText", n), "", file, kMenuTextSize);
        t.pathName = getProfileString(section, numbered("PathName", n), "", file, kPathNameSize);
        if (t.menuText.empty() || t.pathName.empty()) break;
        t.arguments = getProfileString(section, numbered("Arguments", n), "", file, kArgumentsSize);
        t.initialDir = getProfileString(section, numbered("InitialDir", n), "", file, kInitialDirSize);
        t.askArguments = readBool(section, "AskArguments", n, file);
        t.captureOutput = readBool(section, "CaptureOutput", n, file);
        t.hideWindow = readBool(section, "HideWindow", n, file);
        t.saveFile = getProfileInt(section, numbered("SaveFile", n), kSaveActive, file);
        t.promptBeforeSave = readBool(section, "PromptBeforeSave", n, file);
        t.quoteMode = getProfileInt(section, numbered("SendArgAsShortFileName", n), kQuoteWithBlanks, file);
        if (t.quoteMode < kQuoteWithBlanks || t.quoteMode > kQuoteAlways) t.quoteMode = kQuoteWithBlanks;
        list.tools.push_back(std::move(t));
    }
    list.storedCount = list.tools.size();
}

void saveUserTools(std::string_view section, std::string_view file) {
    UserTools& list = userTools();
    ProfileBatch batch(file);
    for (size_t n = 1; n <= list.tools.size(); ++n) {
        const UserTool& t = list.tools[n - 1];
        writeProfileString(section, numbered("MenuText", n), t.menuText, file);
        writeProfileString(section, numbered("PathName", n), t.pathName, file);
        writeProfileString(section, numbered("Arguments", n), t.arguments, file);
        writeProfileString(section, numbered("InitialDir", n), t.initialDir, file);
        writeBool(section, "AskArguments", n, t.askArguments, file);
        writeBool(section, "CaptureOutput", n, t.captureOutput, file);
        writeBool(section, "HideWindow", n, t.hideWindow, file);
        writeProfileInt(section, numbered("SaveFile", n), t.saveFile, file);
        writeBool(section, "PromptBeforeSave", n, t.promptBeforeSave, file);
        writeProfileInt(section, numbered("SendArgAsShortFileName", n), t.quoteMode, file);
    }
    removeRecords(section, kToolKeys, list.tools.size() + 1, list.storedCount, file);
    list.storedCount = list.tools.size();
}

void loadUserHelp(std::string_view section, std::string_view file) {
    UserHelp& help = userHelp();
    help.contextHelpFile = getProfileString(section, "ContextHelpFile", "", file, kHelpFileSize);
    help.entries.clear();
    for (size_t n = 1; n <= kMaxHelpEntries; ++n) {
        HelpEntry e;
        e.menuString = getProfileString(section, numbered("MenuString", n), "", file, kHelpMenuSize);
        e.helpFile = getProfileString(section, numbered("HelpFile", n), "", file, kHelpFileSize);
        if (e.menuString.empty() || e.helpFile.empty()) break;
        help.entries.push_back(std::move(e));
    }
    help.storedCount = help.entries.size();
}

void saveUserHelp(std::string_view section, std::string_view file) {
    UserHelp& help = userHelp();
    ProfileBatch batch(file);
    writeProfileString(section, "ContextHelpFile", help.contextHelpFile, file);
    for (size_t n = 1; n <= help.entries.size(); ++n) {
        writeProfileString(section, numbered("MenuString", n), help.entries[n - 1].menuString, file);
        writeProfileString(section, numbered("HelpFile", n), help.entries[n - 1].helpFile, file);
    }
    removeRecords(section, kHelpKeys, help.entries.size() + 1, help.storedCount, file);
    help.storedCount = help.entries.size();
}

}  // namespace zol
