#include "script/wizard.h"

#include "engine/options.h"
#include "platform/file_io.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "script/macro_convert.h"
#include "script/script_messages.h"

namespace zol {
namespace {

constexpr char kScriptFolder[] = "script/";
constexpr std::string_view kScriptExtension = ".c";
constexpr std::string_view kNameForbidden = "/<>|\"\\?*:";
constexpr std::string_view kCommentEnd = "*/";
constexpr unsigned kNewFileMode = 0644;

// Fixing word wrap also sets the wrap method and the document's own wrap.
constexpr size_t kWordWrap = 0, kWrapMethod = 1, kDocWrap = 2;
static_assert(std::string_view(kSavedSettings[kWordWrap].setter) == "Zol_SetWordWrap");
static_assert(std::string_view(kSavedSettings[kWrapMethod].setter) == "Zol_SetWordWrapMethod");
static_assert(std::string_view(kSavedSettings[kDocWrap].setter) == "Zol_SetDocWordWrap");

constexpr char kBannerRule[] = "********************************************************************";
constexpr char kBannerNameIndent[] = "                         ";

constexpr char kConsoleProgram[] =
    "#include <stdio.h>\n#include <stdlib.h>\n\nint main(int argc, char *argv[])\n{\n"
    "   printf(\"Hello, World!\\n\");\n   system(\"pause\");\n   return 0;\n}\n";

constexpr char kCompatibility[] =
    "\n\n// Zolder 2.x compatibility\n#ifndef VEKC_SOFTWORDWRAP\n#define Zol_GetWordWrapMethod()    0\n"
    "#define Zol_SetWordWrapMethod(n)   ((void)0)\n#define Zol_IsDocWordWrap(h)       0\n"
    "#define Zol_SetDocWordWrap(h, n)   ((void)0)\n#endif\n";

constexpr char kMainHead[] =
    "\nvoid ScriptMain(HDOC hDoc);\n\n"
    "int main(int argc, char *argv[])\n{\n"
    "   HDOC hDoc;\n";
constexpr char kTakeDocument[] =
    "\n   hDoc = Zol_GetActiveDocument();\n"
    "   if (!hDoc) {\n"
    "      MsgBox(\"Cannot get handle of the active document!\", MB_OK);\n"
    "      return 1;\n"
    "   }\n";
constexpr char kRefuseReadOnly[] =
    "   if (Zol_IsReadOnly(hDoc)) {\n"
    "      MsgBox(\"Document is read only!\", MB_OK);\n"
    "      return 1;\n"
    "   }\n";
constexpr char kEndModes[] = "   VM_EndLineDraw(hDoc);\n   VM_EndSelect(hDoc);\n";
constexpr char kCallScriptMain[] = "\n   ScriptMain(hDoc);\n";
constexpr char kMainTail[] = "   return 0;\n}\n";

constexpr char kScriptMainHead[] = "\nvoid ScriptMain(HDOC hDoc)\n{\n";
constexpr char kHelloBody[] =
    "   // WaitCursor() shows the busy cursor while a long job runs;\n"
    "   // RestoreCursor() gives the normal one back.\n"
    "   // WaitCursor();\n"
    "\n"
    "   // TODO: put your code here\n"
    "   MsgBox(\"Hello, World!\", MB_OK);\n"
    "\n"
    "   // RestoreCursor();\n";
constexpr char kScriptMainTail[] = "}\n";

std::string line(std::string_view text) { return std::string(text) + "\n"; }

std::string banner(const WizardChoices& c) {
    return "/" + line(kBannerRule) + kBannerNameIndent + line(c.name) + "\n" + "   Description: " +
           line(c.description) + "   Syntax:      " + line(c.syntax) + "\n" + kBannerRule + "/\n\n";
}

bool usesCommandMacros(const WizardChoices& c) {
    return c.commandMacros || c.endModes || c.kind == ScriptKind::ConvertMacro;
}

std::string includeLine(const char* header, bool on) {
    return (on ? "" : "//") + std::string("#include <") + header + ">\n";
}

std::string includes(const WizardChoices& c) {
    return includeLine("windows.h", true) + includeLine("stdio.h", false) + includeLine("stdlib.h", false) +
           includeLine("string.h", false) + includeLine("editor/doc.h", true) +
           includeLine("editor/macros.h", usesCommandMacros(c)) + includeLine("editor/options.h", c.saveOptions) +
           includeLine("editor/dlg.h", false) + includeLine("editor/app.h", false);
}

// "Zol_SetX(value);" or "Zol_SetX(hDoc, value);" for one saved setting.
std::string setCall(const SavedSetting& s, std::string_view value) {
    return std::string("   ") + s.setter + (s.perDocument ? "(hDoc, " : "(") + std::string(value) + ");\n";
}

std::string optionDeclarations() {
    std::string out;
    for (const SavedSetting& s : kSavedSettings) out += std::string("   ") + s.type + " " + s.variable + ";\n";
    return out;
}

std::string optionReadings() {
    std::string out = "\n   // Save the editor options\n";
    for (const SavedSetting& s : kSavedSettings)
        out += std::string("   ") + s.variable + " = " + s.getter + (s.perDocument ? "(hDoc);\n" : "();\n");
    return out;
}

// Word wrap on is the window-wide wrap at blanks, for the document too.
std::string fixedOptions(const WizardChoices& c) {
    std::string out;
    for (size_t i = 0; i < kSavedSettingCount; ++i) {
        const SavedSetting& s = kSavedSettings[i];
        if (!s.label || c.fixed[i] == OptionFix::Keep) continue;
        const bool on = c.fixed[i] == OptionFix::On;
        out += setCall(s, on ? "TRUE" : "FALSE");
        if (i != kWordWrap) continue;
        if (on) out += setCall(kSavedSettings[kWrapMethod], std::to_string(static_cast<int>(WrapMethod::WindowWords)));
        out += setCall(kSavedSettings[kDocWrap], on ? "TRUE" : "FALSE");
    }
    return out.empty() ? out : "\n   // The options the script runs with\n" + out;
}

std::string optionRestorings() {
    std::string out = "\n   // Restore the editor options\n";
    for (const SavedSetting& s : kSavedSettings) out += setCall(s, s.variable);
    return out;
}

std::string mainFunction(const WizardChoices& c) {
    std::string out = kMainHead;
    if (c.saveOptions) out += optionDeclarations();
    out += kTakeDocument;
    if (c.refuseReadOnly) out += kRefuseReadOnly;
    if (c.endModes) out += kEndModes;
    if (c.saveOptions) out += optionReadings() + fixedOptions(c);
    out += kCallScriptMain;
    if (c.saveOptions) out += optionRestorings();
    return out + kMainTail;
}

std::string scriptMainFunction(const WizardChoices& c) {
    const std::string body = c.kind == ScriptKind::ConvertMacro ? convertMacroBody(c.macro) : kHelloBody;
    return kScriptMainHead + body + kScriptMainTail;
}

}  // namespace

std::string generateScript(const WizardChoices& c) {
    std::string text = banner(c);
    if (c.kind == ScriptKind::Console) return text + kConsoleProgram;
    return text + includes(c) + kCompatibility + mainFunction(c) + scriptMainFunction(c);
}

const char* scriptNameProblem(std::string_view name) {
    if (name.find_first_not_of(' ') == std::string_view::npos) return scriptmsg::kEmptyName;
    if (name.find_first_of(kNameForbidden) != std::string_view::npos) return scriptmsg::kBadName;
    return nullptr;
}

const char* bannerTextProblem(std::string_view text) {
    return text.find(kCommentEnd) != std::string_view::npos ? scriptmsg::kBannerEnd : nullptr;
}

std::string wizardScriptPath(std::string_view name) {
    std::string file(name);
    // ".c" alone is a name, not an extension.
    if (file.size() <= kScriptExtension.size() || !file.ends_with(kScriptExtension)) file += kScriptExtension;
    return homeDir() + kScriptFolder + file;
}

WizardWrite writeWizardScript(const std::string& path, std::string_view text, bool replace) {
    if (fileExists(path) && !replace) return WizardWrite::Exists;
    if (isDirectory(path)) return WizardWrite::Failed;
    const bool ok = replace ? replaceFile(path, text) : createFileNoReplace(path, text, kNewFileMode);
    if (ok) return WizardWrite::Written;
    // Another program may have made the file in the meantime.
    return !replace && fileExists(path) ? WizardWrite::Exists : WizardWrite::Failed;
}

}  // namespace zol
