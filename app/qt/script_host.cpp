#include "app/qt/script_host.h"

#include <QApplication>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <chrono>

#include "app/qt/qt_shell.h"
#include "app/qt/script_console.h"
#include "engine/shell.h"
#include "script/errors.h"

namespace zol {
namespace {

// How often a run waiting for an editor call looks at the stop flag, which an
// interrupt from the terminal sets without waking anyone.
constexpr auto kStopPoll = std::chrono::milliseconds(50);

// The run's thread holds the script calls' machine stack (bounded by kMaxHostStack)
// and the compiler's nesting besides: a main thread's usual size, twice over.
constexpr uint kScriptThreadStack = 4 * kMaxHostStack;

// A script may call the editor thousands of times a second; the windows catch up with
// its changes this often, which the eye takes for at once.
constexpr int kViewSyncMs = 30;

// How often an editor call that waits for the user's dialog or menu to close looks
// again.
constexpr int kUserBusyRetryMs = 20;

// A dialog or a menu of the user's is open: what opened it may hold a document that an
// editor call could close under it, so the call waits until it is gone. (A script's
// own dialog opens inside its call, when no other call of the run can come.)
bool userBusy() { return QApplication::activeModalWidget() || QApplication::activePopupWidget(); }

// Over the middle of the main window, and wholly on its screen where it fits.
void placeOver(QWidget* w, const QWidget* frame) {
    QRect r(QPoint(), w->size());
    r.moveCenter(frame->geometry().center());
    if (const QScreen* screen = frame->screen()) {
        const QRect a = screen->availableGeometry();
        r.moveLeft(std::max(a.left(), std::min(r.left(), a.right() - r.width())));
        r.moveTop(std::max(a.top(), std::min(r.top(), a.bottom() - r.height())));
    }
    w->move(r.topLeft());
}

}  // namespace

// One editor call on its way to the window thread.
struct EditorCall {
    enum State { Waiting, Running, Done, Dropped } state = Waiting;
    const std::function<void()>* work;
};

struct TScriptHost::Run {
    ScriptLaunch launch;
    std::shared_ptr<ConsoleShared> shared = std::make_shared<ConsoleShared>();
    std::unique_ptr<WindowConsole> console;
    QPointer<TScriptConsole> window;
    ScriptRunResult result;
    std::unique_ptr<QThread> thread;
};

TScriptHost::TScriptHost(QWidget* frame) : QObject(frame), frame_(frame) {
    changeTimer_.setSingleShot(true);
    changeTimer_.setInterval(kViewSyncMs);
    connect(&changeTimer_, &QTimer::timeout, this, &TScriptHost::editorChanged);
    setScriptLauncher([this](ScriptLaunch&& l) { return launch(std::move(l)); });
    QTimer::singleShot(0, this, [this] {
        ready_ = true;
        startNext();
    });
}

TScriptHost::~TScriptHost() {
    setScriptLauncher({});
    if (!run_) return;
    stop();
    run_->thread->wait();
    if (run_->window) delete run_->window.data();
    releaseScriptSlot();
}

bool TScriptHost::launch(ScriptLaunch&& l) {
    // Start-up scripts wait their turn; a run asked for while another goes is refused.
    if (run_ && l.by != ScriptStarter::StartUp) return false;
    waiting_.push_back(std::move(l));
    startNext();
    return true;
}

void TScriptHost::startNext() {
    if (!ready_ || run_ || waiting_.empty()) return;
    ScriptLaunch next = std::move(waiting_.front());
    waiting_.pop_front();
    start(std::move(next));
}

void TScriptHost::start(ScriptLaunch&& l) {
    if (!takeScriptSlot()) {
        // A run of another front end (none in the desktop): try again when it is over.
        waiting_.push_front(std::move(l));
        QTimer::singleShot(kStopPoll, this, &TScriptHost::startNext);
        return;
    }
    run_ = std::make_unique<Run>();
    Run& r = *run_;
    r.launch = std::move(l);
    r.console = std::make_unique<WindowConsole>(r.shared, [this] {
        QMetaObject::invokeMethod(this, &TScriptHost::openConsole, Qt::QueuedConnection);
    });
    ScriptRunOptions& o = r.launch.options;
    o.console = r.console.get();
    o.editorGate = [this](const std::function<void()>& work) { callEditor(work); };
    o.slotHeld = true;
    o.reportError = nullptr;
    r.thread.reset(QThread::create([this, &r] {
        r.result = runScriptFile(r.launch.path, r.launch.argv, r.launch.options);
        QMetaObject::invokeMethod(this, &TScriptHost::finish, Qt::QueuedConnection);
    }));
    r.thread->setStackSize(kScriptThreadStack);
    r.thread->start();
    Q_EMIT runStarted();
}

void TScriptHost::openConsole() {
    if (!run_ || run_->window) return;
    auto* w = new TScriptConsole(run_->shared, fromAnsi(run_->launch.options.title), frame_);
    w->stopRequested = [this] { stop(); };
    run_->window = w;
    placeOver(w, frame_);
    w->show();
    w->raise();
    w->activateWindow();
    w->setFocus();
}

TScriptConsole* TScriptHost::console() const { return run_ ? run_->window.data() : nullptr; }

void TScriptHost::finish() {
    if (!run_) return;
    run_->thread->wait();
    // The console goes with the run, before its error is told.
    if (run_->window) delete run_->window.data();
    last_ = run_->result;
    run_.reset();
    if (last_.error) shell().scriptError(last_.message);
    // A script that asked for the busy cursor and ended without giving it back must
    // not leave the editor looking busy.
    shell().busyCursor(false);
    releaseScriptSlot();
    Q_EMIT editorChanged();
    Q_EMIT runEnded();
    startNext();
}

void TScriptHost::stop() {
    if (!run_) return;
    requestScriptStop();
    wake();
}

void TScriptHost::wake() {
    { std::lock_guard<std::mutex> lock(gateMutex_); }
    gateDone_.notify_all();
    if (!run_) return;
    { std::lock_guard<std::mutex> lock(run_->shared->mutex); }
    run_->shared->keyArrived.notify_all();
}

void TScriptHost::callEditor(const std::function<void()>& work) {
    auto call = std::make_shared<EditorCall>();
    call->work = &work;
    QMetaObject::invokeMethod(this, [this, call] { deliver(call); }, Qt::QueuedConnection);
    std::unique_lock<std::mutex> lock(gateMutex_);
    while (call->state != EditorCall::Done) {
        if (call->state == EditorCall::Waiting && scriptStopRequested()) {
            call->state = EditorCall::Dropped;
            return;
        }
        gateDone_.wait_for(lock, kStopPoll);
    }
}

void TScriptHost::deliver(const std::shared_ptr<EditorCall>& call) {
    {
        std::lock_guard<std::mutex> lock(gateMutex_);
        if (call->state == EditorCall::Dropped) return;
        if (userBusy()) {
            QTimer::singleShot(kUserBusyRetryMs, this, [this, call] { deliver(call); });
            return;
        }
        call->state = EditorCall::Running;
    }
    (*call->work)();
    {
        std::lock_guard<std::mutex> lock(gateMutex_);
        call->state = EditorCall::Done;
    }
    gateDone_.notify_all();
    editorCalled();
}

void TScriptHost::editorCalled() {
    if (!changeTimer_.isActive()) changeTimer_.start();
}

}  // namespace zol
