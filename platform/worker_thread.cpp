#include "platform/worker_thread.h"

#include <system_error>
#include <thread>

namespace zol {

struct WorkerThread::Impl {
    std::thread thread;
};

WorkerThread::WorkerThread() : impl_(std::make_unique<Impl>()) {}

WorkerThread::~WorkerThread() { join(); }

bool WorkerThread::start(std::function<void()> work) {
    if (impl_->thread.joinable()) return false;
    try {
        impl_->thread = std::thread(std::move(work));
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void WorkerThread::join() {
    if (impl_->thread.joinable()) impl_->thread.join();
}

}  // namespace zol
