// The calls that reach the user through the shell: message boxes and the alert sound,
// the busy cursor, the editor's windows as scripts hold them, help files. Windows'
// MB_ flags and button numbers are read and answered here, by windows.h's numbers.
#include "engine/shell.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "script/builtins_os.h"

namespace zol {
namespace {

// MB_ flags: the low four bits pick the buttons, the next four the icon, the four
// above those the default button.
constexpr BoxButtons kButtonsByFlag[] = {BoxButtons::Ok,          BoxButtons::OkCancel, BoxButtons::AbortRetryIgnore,
                                         BoxButtons::YesNoCancel, BoxButtons::YesNo,    BoxButtons::RetryCancel};
constexpr BoxIcon kIconsByFlag[] = {BoxIcon::None, BoxIcon::Error, BoxIcon::Question, BoxIcon::Warning,
                                    BoxIcon::Information};
constexpr uint32_t kFlagBits = 4, kFlagField = 0xF;

struct ButtonId {
    BoxButton button;
    int id;  // IDOK ...
};
constexpr ButtonId kButtonIds[] = {{BoxButton::Ok, 1},    {BoxButton::Cancel, 2}, {BoxButton::Abort, 3},
                                   {BoxButton::Retry, 4}, {BoxButton::Ignore, 5}, {BoxButton::Yes, 6},
                                   {BoxButton::No, 7}};

constexpr uint32_t kHelpQuit = 2;  // HELP_QUIT: closes the help viewer

template <typename T, size_t N>
T byFlag(const T (&table)[N], uint32_t flags, uint32_t field) {
    const uint32_t v = (flags >> (field * kFlagBits)) & kFlagField;
    return v < N ? table[v] : table[0];
}

int buttonId(BoxButton b) {
    for (const ButtonId& e : kButtonIds)
        if (e.button == b) return e.id;
    return kButtonIds[0].id;
}

int showBox(const std::string& text, const std::string& caption, uint32_t flags) {
    MessageBoxRequest box;
    box.text = text;
    box.caption = caption;
    box.buttons = byFlag(kButtonsByFlag, flags, 0);
    box.icon = byFlag(kIconsByFlag, flags, 1);
    const size_t def = (flags >> (2 * kFlagBits)) & kFlagField;
    box.defaultButton = def < boxButtonSet(box.buttons).count ? def : 0;
    return buttonId(shell().messageBox(box));
}

// A help file named without a folder that is not in the current folder is looked for
// in the home.
std::string helpPath(const std::string& name) {
    if (hasFolderPart(name) || fileExists(name)) return name;
    return resolveBareName(name);
}

}  // namespace

Val bi_MessageBeep(BArgs&) {
    shell().beep();
    return intVal(1);
}

Val bi_MessageBox(BArgs& a) {
    return intVal(showBox(optionalText(a, 1).value_or(""), optionalText(a, 2).value_or(""), a.p(3)));
}

Val bi_MsgBox(BArgs& a) { return intVal(showBox(optionalText(a, 0).value_or(""), "", a.p(1))); }

Val bi_WinHelp(BArgs& a) {
    const std::optional<std::string> file = optionalText(a, 1);
    if (!file || file->empty() || a.p(2) == kHelpQuit) return intVal(0);
    return intVal(shell().openHelp(helpPath(*file)) ? 1 : 0);
}

Val bi_FindWindow(BArgs& a) {
    const std::optional<std::string> className = optionalText(a, 0), title = optionalText(a, 1);
    std::optional<std::string_view> c, t;
    if (className) c = *className;
    if (title) t = *title;
    return intVal(shell().findWindow(c, t));
}

Val bi_GetMainWndHandle(BArgs&) { return intVal(mainWindowToken()); }

Val bi_WaitCursor(BArgs&) {
    shell().busyCursor(true);
    return intVal(0);
}

Val bi_RestoreCursor(BArgs&) {
    shell().busyCursor(false);
    return intVal(0);
}

}  // namespace zol
