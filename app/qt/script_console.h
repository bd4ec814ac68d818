// The console window of a script run: its standard input, output and error and the
// conio calls on a character grid (app/qt/console_grid.h). The script's thread writes
// and reads through a WindowConsole; the window, on the window thread, paints the
// grid and queues the keys typed. They share a ConsoleShared under its mutex.
#pragma once
#include <QAbstractScrollArea>
#include <QTimer>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "app/qt/console_grid.h"
#include "script/console.h"

namespace zol {

inline constexpr int kExtendedKey = 0x10000;

struct ConsoleShared {
    std::mutex mutex;
    std::condition_variable keyArrived;
    ConsoleGrid grid;
    // Typed and not yet read: a byte, or a key without a character as
    // kExtendedKey | prefix << 8 | code, which getch reads as two characters (the prefix,
    // 0 or 0xE0, then the code); tail holds such a key's code between the two, or -1.
    std::deque<int> keys;
    int tail = -1;
    std::string editing;  // the line being typed for a line read
    std::string entered;  // lines entered with Enter and not yet read
    bool dirty = false;   // the grid changed since the window last looked
};

// The run's side: opens the window at its first use (through openWindow, called on
// the script's thread with the mutex not held) and waits for keys there.
class WindowConsole final : public ScriptConsole {
public:
    WindowConsole(std::shared_ptr<ConsoleShared> shared, std::function<void()> openWindow)
        : shared_(std::move(shared)), openWindow_(std::move(openWindow)) {}

    bool write(ConsoleStream stream, std::string_view text) override;
    int readChar() override;
    bool unreadChar(int c) override;
    int readKey(bool echo) override;
    bool keyWaiting() override;
    void clear() override;
    void gotoXY(int x, int y) override;
    int whereX() override;
    int whereY() override;
    void pause(std::string_view prompt) override;

private:
    std::unique_lock<std::mutex> use();
    // Waits until a key was typed; false when the run is being stopped instead.
    bool waitForKey(std::unique_lock<std::mutex>& lock);
    // Line editing of one key; false at an end of input typed on an empty line.
    bool edit(int key);

    std::shared_ptr<ConsoleShared> shared_;
    std::function<void()> openWindow_;
    bool opened_ = false;
};

class TScriptConsole : public QAbstractScrollArea {
    Q_OBJECT

public:
    TScriptConsole(std::shared_ptr<ConsoleShared> shared, const QString& title, QWidget* parent);

    // Ctrl+C, Ctrl+Break and closing the window; the run then ends with error 98.
    std::function<void()> stopRequested;
    // The screen's text as shown, one line per row without trailing blanks (tests).
    QString screenText() const;

protected:
    void paintEvent(QPaintEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    void refresh();
    void queueKey(int key);

    std::shared_ptr<ConsoleShared> shared_;
    QTimer refreshTimer_;
    int charWidth_ = 8;
    int lineHeight_ = 16;
};

}  // namespace zol
