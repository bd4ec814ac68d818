// TMainFrame: the main window. Holds one TVekWinEditor per document in an MDI area
// (tabs, or tiled and cascaded windows), the menus of the menu table (app/qt/
// messages.h), the command palette, the tool and document bars, the status bar, and
// the frame's own commands (files, windows). Its members are defined in
// main_frame.cpp (the frame, its files and commands), main_frame_windows.cpp (tabs and
// separate windows), main_frame_menus.cpp (menus and bars), main_frame_palette.cpp
// (the command palette and the context menu) and main_frame_session.cpp (placement,
// and the documents and windows of the last session).
#pragma once
#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "app/application.h"
#include "engine/command_table.h"

class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QToolBar;
class QActionGroup;

namespace zol {

class TVekWinEditor;
class TScriptHost;
class TPlugInWindows;
class QtShell;
struct PaletteEntry;

class TMainFrame : public QMainWindow {
    Q_OBJECT

public:
    explicit TMainFrame(Application& app);
    ~TMainFrame() override;

    Application& application() { return app_; }
    QtShell& qtShell() { return *shell_; }
    // Runs the scripts (runScript hands them over to it while the frame lives).
    TScriptHost& scriptHost() { return *scriptHost_; }
    QMdiArea* mdiArea() const { return mdi_; }
    TVekWinEditor* activeView() const;
    TVekWinEditor* viewOf(const Document* doc) const;

    // Window placement, fonts and bars from the settings; call after startUp.
    void applySettings();
    // Fonts, bars and the look of every window, after the options changed.
    void applyViewSettings();
    // Opens (or activates) a file, restoring its cursor from "LastFilesInfo"; null when
    // it could not be opened (the reason is already shown).
    Document* openFile(const std::string& path);
    // A file named on the command line: one that does not exist yet opens as an empty
    // document of that name, which the first save creates.
    Document* openCommandLineFile(const std::string& path);
    Document* newFile();
    // Closes a document with the save question; false when the user kept it.
    bool closeDocumentWindow(Document* doc);
    // Asks for a file name and text format to save under.
    bool askSaveName(std::string& path, int& format, const QString& title);
    bool saveAs(Document& doc);
    // One window for every document of the application, none for the others.
    void syncViews();
    void showMessage(const QString& text);
    void rebuildPlugInMenu();
    // The plug-ins' commands or windows changed: their windows and menu items follow.
    void plugInsChanged();
    TPlugInWindows& plugInWindows() { return *plugInWindows_; }
    // Reopens the documents of the last session ("SaveDesktop") and the "AutoLoad" list.
    void restoreDesktop();
    // Records the open documents and the window placement for the next session.
    void saveDesktop();
    // The status bar's texts, for tests.
    QString statusText() const;
    // Carries out a command the view cannot (files, windows); true when taken.
    bool frameCommand(TVekWinEditor* view, uint16_t id);

    // The commands the frame carries out, and its own actions that menus name.
    struct FrameCommand {
        Cmd command;
        void (*run)(TMainFrame& frame, TVekWinEditor* view);
    };
    static std::span<const FrameCommand> frameCommands();
    static bool handlesCommand(uint16_t id);
    struct FrameAction {
        const char* name;
        void (*run)(TMainFrame& frame);
    };
    static std::span<const FrameAction> frameActions();
    // False when no action has that name.
    bool runFrameAction(const std::string& name);
    // Runs a command on the active document (or, without one, a frame command).
    void runOnActive(uint16_t id, uint32_t param = 0);
    // The menu of the menu table by its name ("File", "RecentFiles", ...), or null.
    QMenu* menu(const std::string& name) const;
    // The view's context menu, for the caller to show and delete.
    QMenu* contextMenu(TVekWinEditor* view);
    // The command palette; runs what the user takes from it.
    void openPalette();
    void runPaletteEntry(const PaletteEntry& e);

    // Tabs (each document filling the area) or separate windows.
    bool tabbed() const;
    void setTabbed(bool on);
    // The placement of the first start (no "Window" key yet): two thirds of the screen,
    // centred; later, the saved one, brought back onto a screen when it lies off all.
    void placeWindow();
    // Offers to reload documents whose files changed on disk (when the window gets focus).
    void checkExternalChanges();

    // Runs a script the user chose (the script dialog, the macro menu); a missing
    // file or a folder is reported and nothing runs.
    void runUserScript(const std::string& path, const std::vector<std::string>& args);
    // The user's macro menu after the Macros menu's own items, and running one of them.
    void rebuildMacroMenu();
    void runMacroMenuItem(size_t index);
    // The items of the user's macro menu carry their place under this property; their
    // texts are the user's, mnemonics or not.
    static constexpr char kMacroMenuItemProperty[] = "macroMenuItem";
    void customizeMacroMenu();
    void scriptWizard();

protected:
    void closeEvent(QCloseEvent* e) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dropEvent(QDropEvent* e) override;
    void changeEvent(QEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void buildMenus();
    void buildToolBars();
    void buildStatusBar();
    void refreshStatus();
    void refreshDocumentBar();
    void refreshRecentMenu();
    void refreshMenuState(QMenu* menu);
    void refreshWindowMenu();
    // A file's cursor and window as "LastFilesInfo" remembers them.
    void restoreView(Document& doc);
    void rememberView(const Document& doc);
    void redrawViews();
    void saveFile(TVekWinEditor* view);
    void tile(bool horizontal);
    void cascade();
    void showWindow(TVekWinEditor* view, Qt::WindowState state);
    void fitToTabs(QMdiSubWindow* sub);
    void addView(Document* doc);
    void closeActive();
    void about();
    void showOptions();
    bool askParameter(const CommandRecord& r, uint32_t& param);
    void runExecScript();
    void scriptRunEnded();
    bool writeBlock(Document& doc);
    bool readBlock(Document& doc);
    void openFileDialog();

    Application& app_;
    std::unique_ptr<QtShell> shell_;
    QMdiArea* mdi_;
    std::map<std::string, QMenu*> menus_;
    QMenu* recentMenu_ = nullptr;
    QMenu* plugInMenu_ = nullptr;
    // The Plug-Ins menu's own rows (the menu table's) come after the plug-ins' items.
    QAction* plugInMenuRows_ = nullptr;
    TPlugInWindows* plugInWindows_ = nullptr;
    QAction* tabsAction_ = nullptr;
    QAction* paletteAction_ = nullptr;
    QList<QAction*> windowItems_;
    QList<QAction*> macroMenuItems_;
    QToolBar* toolBar_ = nullptr;
    QToolBar* documentBar_ = nullptr;
    QActionGroup* documentGroup_ = nullptr;
    QLabel* message_ = nullptr;
    QLabel* position_ = nullptr;
    QLabel* insertMode_ = nullptr;
    QLabel* format_ = nullptr;
    QLabel* modified_ = nullptr;
    QLabel* readOnly_ = nullptr;
    QLabel* recording_ = nullptr;
    QLabel* prefix_ = nullptr;
    QLabel* scriptRunning_ = nullptr;
    TScriptHost* scriptHost_ = nullptr;
    // The window was asked to close while a script ran: it closes when the run ends.
    bool closeAfterScript_ = false;
    QTimer autoSaveTimer_;
    QTimer messageTimer_;
    bool checkingFiles_ = false;
    bool syncing_ = false;
};

}  // namespace zol
