// The plug-ins' windows in the main frame: each dockable window a QDockWidget the user
// can move, float and close, the workspace views tabs of one "Workspace" dock. Their
// content is a TPlugInPanel that the module paints. Where the user left each window
// is kept per window in registry.ini, under the docking layer's keys, and put back
// when the window comes again, in this run or the next.
#pragma once
#include <QDockWidget>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <string>
#include <vector>

class QMainWindow;
class QTabWidget;

namespace zol {

struct PlugInWindow;

// The area a module paints (XPP_OnPaintWindow) and clicks in (XPP_OnWindowMouse).
class TPlugInPanel : public QWidget {
    Q_OBJECT

public:
    TPlugInPanel(intptr_t handle, QWidget* parent);
    intptr_t handle() const { return handle_; }

Q_SIGNALS:
    // The module heard a click; it may have changed documents.
    void acted();

protected:
    void paintEvent(QPaintEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;

private:
    intptr_t handle_;
};

class TPlugInWindows : public QObject {
    Q_OBJECT

public:
    explicit TPlugInWindows(QMainWindow* frame);

    // Makes the windows the plug-ins have and drops those they no longer have.
    void sync();
    void redraw(intptr_t handle);
    // Records where every window is, for the next run.
    void savePlaces();
    // The windows' show/hide actions, for the Plug-Ins menu.
    QList<QAction*> toggleActions() const;

    QDockWidget* dockOf(intptr_t handle) const;
    QDockWidget* workspace() const { return workspace_; }
    QTabWidget* workspaceTabs() const { return tabs_; }

Q_SIGNALS:
    void acted();

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    struct Docked {
        intptr_t handle;
        std::string key;  // the record's name: module file and title
        QPointer<QDockWidget> dock;
    };
    void addDock(const PlugInWindow& w);
    void addView(const PlugInWindow& w);
    void removeGone();
    void placeDock(QDockWidget* dock, const PlugInWindow& w, const std::string& key);
    void savePlace(QDockWidget* dock, const char* keyPath, const std::string& name);
    bool restorePlace(QDockWidget* dock, const char* keyPath, const std::string& name);
    void refreshWorkspace();
    // Shows a dock now, or a floating one once the frame is up: shown before it, it
    // would come up behind it.
    void showDock(QDockWidget* dock, bool shown);

    QMainWindow* frame_;
    std::vector<Docked> docks_;
    QDockWidget* workspace_;
    QTabWidget* tabs_;
    bool workspacePlaced_ = false;
    std::vector<QPointer<QDockWidget>> floatingLater_;
};

}  // namespace zol
