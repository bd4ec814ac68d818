// The script wizard's text generation: a new script made from the choices of its pages
// (kind, macro, name, options), and writing it below the home's "script/" folder. The
// desktop's wizard only gathers the choices.
#pragma once
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "script/macros.h"

namespace zol {

enum class ScriptKind { Console, Editor, ConvertMacro };

// What an option is while the script runs, when the options are saved.
enum class OptionFix { Keep, Off, On };

// The settings a script saves before it runs and restores after, in the order of the
// generated declarations, readings and restorings.
struct SavedSetting {
    const char* type;      // of the declaration, padded so that the names line up
    const char* variable;  // bWordWrapMode
    const char* getter;    // Zol_IsWordWrap
    const char* setter;    // Zol_SetWordWrap
    bool perDocument;      // the calls take hDoc first
    const char* label;     // the wizard's name for fixing it; null for those that follow word wrap
};
inline constexpr SavedSetting kSavedSettings[] = {
    {"BOOL", "bWordWrapMode", "Zol_IsWordWrap", "Zol_SetWordWrap", false, "&Word wrap"},
    {"int ", "nWordWrapMethod", "Zol_GetWordWrapMethod", "Zol_SetWordWrapMethod", false, nullptr},
    {"BOOL", "bDocWordWrap", "Zol_IsDocWordWrap", "Zol_SetDocWordWrap", true, nullptr},
    {"BOOL", "bAutoIndentMode", "Zol_IsAutoIndentMode", "Zol_SetAutoIndentMode", false, "&Auto indent"},
    {"BOOL", "bAutoUnindentMode", "Zol_IsAutoUnindentMode", "Zol_SetAutoUnindentMode", false, "Auto &unindent"},
    {"BOOL", "bOverwriteMode", "Zol_IsOverwriteMode", "Zol_SetOverwriteMode", false, "&Overwrite mode"},
    {"BOOL", "bCursorBeyondEOL", "Zol_IsCursorBeyondEOL", "Zol_SetCursorBeyondEOL", false, "Cursor beyond end of &line"},
    {"BOOL", "bCursorThroughtTabs", "Zol_IsCursorThroughtTabs", "Zol_SetCursorThroughtTabs", false,
     "Cursor &through tabs"},
    {"BOOL", "bUseTabChar", "Zol_IsUseTabChar", "Zol_SetUseTabChar", false, "Use tab c&haracter"},
    {"BOOL", "bKeepTrailingBlanks", "Zol_IsKeepTrailingBlanks", "Zol_SetKeepTrailingBlanks", false,
     "&Keep trailing blanks"},
};
inline constexpr size_t kSavedSettingCount = std::size(kSavedSettings);

struct WizardChoices {
    ScriptKind kind = ScriptKind::Editor;
    std::string name;  // as the user gave it; the file is name.c unless it ends in ".c"
    std::string description;
    std::string syntax;
    // Editor scripts and converted macros:
    bool commandMacros = false;  // include editor/macros.h; ending the modes and conversion need it anyway
    bool endModes = false;       // end line drawing and selecting before the script's work
    bool refuseReadOnly = false;
    bool saveOptions = false;
    std::array<OptionFix, kSavedSettingCount> fixed{};  // only settings with a label count
    std::vector<MacroStep> macro;                       // the steps to convert
};

// The whole text of the new script.
std::string generateScript(const WizardChoices& c);

// The reason a name cannot be a script's name (a text of wizardmsg), or null.
const char* scriptNameProblem(std::string_view name);
// The reason the description or the syntax cannot stand in the banner comment, or null.
const char* bannerTextProblem(std::string_view text);

// The file the wizard writes: the home's "script/" folder and the name, with ".c".
std::string wizardScriptPath(std::string_view name);

enum class WizardWrite { Written, Exists, Failed };
// Writes text as path in one piece; an existing file is replaced only when replace is
// set (Exists otherwise, the file untouched). Failed leaves whatever was there as it was.
WizardWrite writeWizardScript(const std::string& path, std::string_view text, bool replace);

}  // namespace zol
