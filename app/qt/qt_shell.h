// The desktop Shell: message boxes, the system clipboard, and the dialogs the engine
// and plug-ins open, all parented to the main frame.
#pragma once
#include <QString>

#include "engine/shell.h"

class QMimeData;

namespace zol {

class TMainFrame;

// The clipboard format of a column block: width and height as two little-endian
// 32-bit numbers; the text itself travels as plain text beside it.
inline constexpr char kColumnBlockMime[] = "application/x-zolcolumnblock";

// ClipboardData as desktop MIME data, and back. Line ends become LF on the desktop
// and CR LF in the editor; bytes are Windows-1252.
QMimeData* toMimeData(const ClipboardData& data);
ClipboardData fromMimeData(const QMimeData* mime);

class QtShell final : public Shell {
public:
    explicit QtShell(TMainFrame* frame) : frame_(frame) {}
    void message(std::string_view text) override;
    Answer ask(std::string_view text, bool withCancel) override;
    void statusMessage(std::string_view text) override;
    ClipboardData getClipboard() override;
    void setClipboard(const ClipboardData& data) override;
    bool openFileDialog(std::string& path, std::string_view filter, std::string_view title) override;
    bool saveFileDialog(std::string& path, int& format, std::string_view title) override;
    bool browseForDirDialog(std::string& path, std::string_view title) override;
    bool stringDialog(std::string& value, std::string_view title, std::string_view prompt) override;
    bool intDialog(int& value, int minimum, int maximum, std::string_view title, std::string_view prompt) override;
    int listDialog(const std::vector<std::string>& items, std::string_view title) override;
    bool readMeDialog(std::string_view title, std::string_view text) override;
    void plugInsChanged() override;
    int chooseCharacter(std::string_view title) override;
    bool askMacroName(std::string& name) override;
    FindDialogResult findDialog(FindDialogData& data, bool replace) override;
    bool askNumber(std::string_view prompt, int& value) override;
    bool openFile(const std::string& path) override;
    BoxButton messageBox(const MessageBoxRequest& box) override;
    void beep() override;
    void busyCursor(bool on) override;
    uint32_t findWindow(std::optional<std::string_view> className, std::optional<std::string_view> title) override;
    bool openHelp(const std::string& path) override;
    // A "RunningTool" window works the job on a timer; waiting, it is modal.
    void runJob(std::shared_ptr<BackgroundJob> job, bool wait) override;
    bool toolArguments(std::string& arguments, std::string_view tool) override;
    ReplacePromptAnswer replacePrompt(Document& doc) override;
    void redrawPlugInWindow(intptr_t handle) override;

private:
    TMainFrame* frame_;
    bool busy_ = false;
};

// Texts between the engine (Windows-1252 bytes) and Qt.
QString fromAnsi(std::string_view bytes);

}  // namespace zol
