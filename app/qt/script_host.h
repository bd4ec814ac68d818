// TScriptHost: runs the desktop's scripts, one at a time, each on a thread of its own so
// that the editor keeps repainting and answering while a script computes or waits for
// its console. Every call a script makes into the editor (the editor built-ins and the
// library calls that reach the windows, the profile files or the process's shared
// state) is carried to the window thread and waited for, so no editor data is ever
// touched from two threads; between two such calls the user may work on, and the
// handles a script holds stay safe because a closed document's handle names nothing.
// A run opens its console window (TScriptConsole) at its first use of the console.
#pragma once
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include "script/run_script.h"

class QWidget;

namespace zol {

class TScriptConsole;
struct ConsoleShared;
struct EditorCall;
class WindowConsole;

class TScriptHost : public QObject {
    Q_OBJECT

public:
    // Takes over runScript's runs (setScriptLauncher) until destroyed. Runs handed
    // over before the event loop turns wait for it, so that start-up scripts begin
    // once the main window stands.
    explicit TScriptHost(QWidget* frame);
    // Stops a run that is going and waits for its thread.
    ~TScriptHost() override;

    bool running() const { return run_ != nullptr; }
    // Sets the stop flag and wakes the run where it waits (console, editor call); the
    // run ends with error 98 and runEnded follows.
    void stop();
    // The console window of the run going; null while it has none.
    TScriptConsole* console() const;
    // The result of the run that ended last.
    const ScriptRunResult& lastResult() const { return last_; }

Q_SIGNALS:
    void runStarted();
    // After the console went, the error (if any) was reported and the running flag
    // cleared.
    void runEnded();
    // The script called into the editor; sent once for a burst of calls.
    void editorChanged();

private:
    struct Run;
    bool launch(ScriptLaunch&& launch);
    void startNext();
    void start(ScriptLaunch&& launch);
    void finish();
    void openConsole();
    // On the script's thread: runs work on the window thread and waits for it. Work not
    // yet begun is dropped when the run is being stopped.
    void callEditor(const std::function<void()>& work);
    // On the window thread: runs the call, or looks again later while the user is busy.
    void deliver(const std::shared_ptr<EditorCall>& call);
    void editorCalled();
    void wake();

    QWidget* frame_;
    bool ready_ = false;
    std::deque<ScriptLaunch> waiting_;
    std::unique_ptr<Run> run_;
    ScriptRunResult last_;
    QTimer changeTimer_;
    std::mutex gateMutex_;
    std::condition_variable gateDone_;
};

}  // namespace zol
