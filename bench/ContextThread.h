#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// A thread with a GL context of its own, which runs one function at a time.
class ContextThread {
public:
    ContextThread() : thread_([this] { runAll(); }) {}
    ~ContextThread();
    ContextThread(const ContextThread&) = delete;
    ContextThread& operator=(const ContextThread&) = delete;

    /// Begins \p work. The previous one must be finished.
    void start(std::function<void()> work);
    /// Waits until the work is finished.
    void finish();

private:
    void runAll();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::function<void()> work_;  ///< Empty if there is none.
    bool ends_ = false;
    std::thread thread_;
};
