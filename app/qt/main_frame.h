// TMainFrame: the main window. Holds one TVekWinEditor per document in an MDI area
// (tabs, or tiled and cascaded windows), the menus built from the command table, the
// tool and document bars, the status bar, and the frame's own commands (files,
// windows, help). Its members are defined in main_frame.cpp (the frame, its windows
// and commands), main_frame_menus.cpp (menus and bars) and main_frame_session.cpp
// (the documents and windows of the last session).
#pragma once
#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "app/application.h"

class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QToolBar;
class QActionGroup;

namespace zol {

class TVekWinEditor;
class QtShell;

class TMainFrame : public QMainWindow {
    Q_OBJECT

public:
    explicit TMainFrame(Application& app);
    ~TMainFrame() override;

    Application& application() { return app_; }
    QtShell& qtShell() { return *shell_; }
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
    // Reopens the documents of the last session ("SaveDesktop") and the "AutoLoad" list.
    void restoreDesktop();
    // Records the open documents and the window placement for the next session.
    void saveDesktop();
    // The status bar's texts, for tests.
    QString statusText() const;
    // Carries out a command the view cannot (files, windows, help); true when taken.
    bool frameCommand(TVekWinEditor* view, uint16_t id);
    // Offers to reload documents whose files changed on disk (when the window gets focus).
    void checkExternalChanges();

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
    void refreshKeyNames(QMenu* menu);
    // A file's cursor and window as "LastFilesInfo" remembers them.
    void restoreView(Document& doc);
    void rememberView(const Document& doc);
    void redrawViews();
    void tile(bool horizontal);
    void runOnActive(uint16_t id);
    void runExecScript();
    bool writeBlock(Document& doc);
    bool readBlock(Document& doc);
    void openFileDialog();

    Application& app_;
    std::unique_ptr<QtShell> shell_;
    QMdiArea* mdi_;
    QMenu* recentMenu_ = nullptr;
    QMenu* plugInMenu_ = nullptr;
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
    QTimer autoSaveTimer_;
    QTimer messageTimer_;
    bool checkingFiles_ = false;
    bool syncing_ = false;
};

}  // namespace zol
