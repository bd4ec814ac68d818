// What the engine needs from the user and the screen. The application implements
// these twice (desktop and headless); tests use the headless one or a recording fake.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

struct Document;

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

// What the Find and Replace dialogs edit: the texts and the search options.
struct FindDialogData {
    std::string findText;
    std::string replaceText;
    bool wholeWord = false;
    bool matchCase = false;
    bool regex = false;
    bool forward = true;
    bool inSelection = false;  // Replace All covers the selection only
    bool prompt = false;       // Replace All asks before each hit
};
enum class FindDialogResult { Cancel, Find, ReplaceOne, ReplaceAll };
// The answers of the question asked before each replacement.
enum class ReplacePromptAnswer { Yes, No, All, Cancel };

// A message box as scripts ask for one: its buttons, its icon, and the button that
// Enter presses.
enum class BoxButtons { Ok, OkCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
enum class BoxButton { Ok, Cancel, Abort, Retry, Ignore, Yes, No };
enum class BoxIcon { None, Error, Question, Warning, Information };
struct MessageBoxRequest {
    std::string_view text;
    std::string_view caption;  // empty: the editor's name
    BoxButtons buttons = BoxButtons::Ok;
    BoxIcon icon = BoxIcon::None;
    size_t defaultButton = 0;  // index into the set's buttons
};
struct BoxButtonSet {
    BoxButtons set;
    std::array<BoxButton, 3> shown;  // left to right
    size_t count;
    std::array<BoxButton, 3> asked;  // what a question's Yes, No and Cancel stand for
};
const BoxButtonSet& boxButtonSet(BoxButtons set);

// Scripts hold the editor's windows as small numbers that are no script address: 0
// none, kMainWindowToken the main frame, the desktop's other top-level windows above.
constexpr uint32_t kMainWindowToken = 1;
// kMainWindowToken while the application has a main window, else 0 (headless).
uint32_t mainWindowToken();

// Work that goes on outside the editor while the editor stays usable: a running user
// tool. Whoever runs it calls poll() again and again until it answers false; each call
// does a bounded slice of the work on the calling (window) thread.
class BackgroundJob {
public:
    virtual ~BackgroundJob() = default;
    // One slice; waits at most waitMs for something to do when there is nothing yet.
    // False once the work is over.
    virtual bool poll(int waitMs) = 0;
    // Asks the work to end; poll() goes on until it has.
    virtual void stop() = 0;
    virtual bool stopping() const = 0;
    // What the user is shown while it runs: a name, and one line of detail.
    virtual std::string title() const = 0;
    virtual std::string detail() const = 0;
};

// How long a shell without an event loop lets a job wait between slices.
constexpr int kJobWaitMs = 10;

class Shell {
public:
    virtual ~Shell() = default;
    // A message box with one button.
    virtual void message(std::string_view text) = 0;
    // A script's error report, "NAME Line N: message": a message box unless the shell
    // has a better place for one line.
    virtual void scriptError(std::string_view report) { message(report); }
    // A question; withCancel adds a third answer.
    virtual Answer ask(std::string_view text, bool withCancel) = 0;
    // A short text in the status bar.
    virtual void statusMessage(std::string_view text) = 0;
    virtual ClipboardData getClipboard() = 0;
    virtual void setClipboard(const ClipboardData& data) = 0;

    // Dialogs that scripts and plug-ins open. Each returns false when cancelled, which
    // is all a shell without windows ever answers.
    virtual bool openFileDialog(std::string& /*path*/, std::string_view /*filter*/, std::string_view /*title*/) {
        return false;
    }
    virtual bool saveFileDialog(std::string& /*path*/, int& /*format*/, std::string_view /*title*/) { return false; }
    virtual bool browseForDirDialog(std::string& /*path*/, std::string_view /*title*/) { return false; }
    virtual bool stringDialog(std::string& /*value*/, std::string_view /*title*/, std::string_view /*prompt*/) {
        return false;
    }
    virtual bool intDialog(int& /*value*/, int /*minimum*/, int /*maximum*/, std::string_view /*title*/,
                           std::string_view /*prompt*/) {
        return false;
    }
    // The chosen item's index, -1 when cancelled.
    virtual int listDialog(const std::vector<std::string>& /*items*/, std::string_view /*title*/) { return -1; }
    virtual bool readMeDialog(std::string_view /*title*/, std::string_view /*text*/) { return false; }
    // The plug-ins' commands or windows changed: menus and docking bars are rebuilt.
    virtual void plugInsChanged() {}
    // The symbol table: a character chosen by the user (1..255), or -1 when cancelled.
    // Without a dialog the choice is cancelled.
    virtual int chooseCharacter(std::string_view /*title*/) { return -1; }
    // The name of a macro about to be recorded: name comes in with a suggestion and
    // may be changed; false cancels the recording.
    virtual bool askMacroName(std::string& /*name*/) { return true; }
    // The Find dialog (replace false) or the Replace dialog, filled from `data` and
    // writing the user's choices back into it unless cancelled.
    virtual FindDialogResult findDialog(FindDialogData& /*data*/, bool /*replace*/) { return FindDialogResult::Cancel; }
    // Asks for a number (the go-to dialogs); false when cancelled.
    virtual bool askNumber(std::string_view /*prompt*/, int& /*value*/) { return false; }
    // Opens a file as a document (or activates it when it is open) and makes it the
    // active one. False when it could not be opened; the reason is already shown.
    virtual bool openFile(const std::string& /*path*/) { return false; }

    // The button pressed. Without a box of its own a shell shows a one-button box as a
    // message and the others as a question, whose answer stands for a button.
    virtual BoxButton messageBox(const MessageBoxRequest& box);
    // The system's alert sound.
    virtual void beep() {}
    // While on, the editor's windows show the busy cursor.
    virtual void busyCursor(bool /*on*/) {}
    // One of the editor's own top-level windows by class name and title (each may be
    // left out), as a script holds it; 0 when none matches.
    virtual uint32_t findWindow(std::optional<std::string_view> /*className*/,
                                std::optional<std::string_view> /*title*/) {
        return 0;
    }
    // Shows a help file (or a URL) in the desktop's viewer; false when it cannot.
    virtual bool openHelp(const std::string& /*path*/) { return false; }

    // Runs a job to its end. A shell with an event loop may return at once and poll
    // the job there, showing it to the user, who may stop it; with wait it returns
    // only when the job is over (the user can still stop it). A shell without windows
    // polls it here until it ends.
    virtual void runJob(std::shared_ptr<BackgroundJob> job, bool wait);
    // The "ToolArguments" question: a tool's expanded argument line, for the user to
    // change before the tool runs; false cancels the run. Without a dialog the line is
    // taken as it stands.
    virtual bool toolArguments(std::string& /*arguments*/, std::string_view /*tool*/) { return true; }
    // "ReplacePrompt": whether to replace the hit selected in doc. Without a dialog
    // nothing is replaced.
    virtual ReplacePromptAnswer replacePrompt(Document& /*doc*/) { return ReplacePromptAnswer::Cancel; }
    // A plug-in's window (by the plug-in's own number for it) wants painting again.
    // A shell without windows has none to paint.
    virtual void redrawPlugInWindow(intptr_t /*handle*/) {}
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
    // "Bookmarks" opens the list of named bookmarks.
    virtual void namedBookmarksDialog() {}
    // First visible column (0-based), as firstVisibleLine; 0 while the view wraps.
    virtual int32_t firstVisibleColumn() const { return 0; }
    virtual void setFirstVisibleColumn(int32_t /*column*/) {}
    // Painting is held back from the first lock to the unlock that matches it, which
    // repaints; an unlock without a lock only repaints.
    virtual void lockUpdate() {}
    virtual void unlockUpdate() { redraw(); }
    // The window's handle as plug-ins see it (never the document's); 0 for none.
    virtual intptr_t windowHandle() const { return 0; }
};

// The application's shell. Until one is installed a silent one answers every
// question with its safe default.
Shell& shell();
void setShell(Shell* s);

}  // namespace zol
