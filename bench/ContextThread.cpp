#include "ContextThread.h"

#include <utility>

#include "offscreen/OffscreenContext.h"

ContextThread::~ContextThread() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void ContextThread::start(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        work_ = std::move(work);
    }
    changed_.notify_all();
}

void ContextThread::finish() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !work_; });
}

void ContextThread::runAll() {
    const OffscreenContext context;
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ends_ || work_; });
        if (ends_) {
            return;
        }
        lock.unlock();
        work_();
        lock.lock();
        work_ = nullptr;
        changed_.notify_all();
    }
}
