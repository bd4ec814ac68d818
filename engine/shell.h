// What the engine needs from the user and the screen. The application implements
// these twice (desktop and headless); tests use the headless one or a recording fake.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zol {

enum class Answer { Yes, No, Cancel };

// Clipboard contents in the two formats the editor uses. A column block is the
// "ZOLColumnBlock" format: width and height of the block plus the same text as the
// plain-text format.
struct ClipboardData {
    std::string text;          // plain text, lines separated by CR LF
    bool hasColumnBlock = false;
    uint32_t blockWidth = 0;   // |column difference| of the selection's ends
    uint32_t blockHeight = 0;  // |line difference| + 1
};

class Shell {
public:
    virtual ~Shell() = default;
    // A message box with one button.
    virtual void message(std::string_view text) = 0;
    // A question; withCancel adds a third answer.
    virtual Answer ask(std::string_view text, bool withCancel) = 0;
    // A short text in the status bar.
    virtual void statusMessage(std::string_view text) = 0;
    virtual ClipboardData getClipboard() = 0;
    virtual void setClipboard(const ClipboardData& data) = 0;
    // Opens a file as a document (or activates it when it is open) and makes it the
    // active one. False when it could not be opened; the reason is already shown.
    virtual bool openFile(const std::string& /*path*/) { return false; }
};

// One document window. Every hook has a harmless default so that documents can
// live without a window (tests, scripts working on hidden documents).
class EditorView {
public:
    virtual ~EditorView() = default;
    // Offered every command before the executor runs it; true means handled.
    virtual bool preCommand(uint16_t /*id*/, uint32_t /*param*/, uint32_t /*flags*/) { return false; }
    // A changing command was refused because the document is read-only.
    virtual void readOnlyNotify() {}
    virtual void redraw() {}
    virtual void refreshCaption() {}
    virtual void refreshStatus() {}
    // Lines that fit in the window; page moves use it.
    virtual int pageLines() const { return 25; }
    // First visible line (0-based); top/bottom-of-window moves and scrolling use it.
    virtual int32_t firstVisibleLine() const { return 0; }
    virtual void setFirstVisibleLine(int32_t /*line*/) {}
    // "Macro" and "ExecScript" hand over to the window.
    virtual void macroCommand() {}
    virtual void scriptCommand() {}
};

// The application's shell. Until one is installed a silent one answers every
// question with its safe default.
Shell& shell();
void setShell(Shell* s);

}  // namespace zol
