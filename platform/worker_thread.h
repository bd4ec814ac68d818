// A thread of its own for long work that must not hold up the window thread (find in
// files). The work itself shares nothing with the editor but what its owner hands it.
#pragma once
#include <functional>
#include <memory>

namespace zol {

class WorkerThread {
public:
    WorkerThread();
    // Waits for running work to end.
    ~WorkerThread();
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

    // Runs work on a new thread. False, and nothing runs, when work is already running
    // or the system has no thread to give.
    bool start(std::function<void()> work);
    // Waits for the work to end; returns at once when none was started.
    void join();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace zol
