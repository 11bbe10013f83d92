#include "FrameQueue.h"

FrameQueue::FrameQueue(FrameSink& sink, Size size) : sink_(sink) {
    for (Slot& slot : ring_) {
        slot.frame = Image(size);
    }
    thread_ = std::thread(&FrameQueue::Run, this);
}

FrameQueue::~FrameQueue() {
    Close();
}

Image& FrameQueue::Next() {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [this] { return pushed_ - written_ < ring_.size(); });
    CheckSink();
    return ring_.at(pushed_ % ring_.size()).frame;
}

void FrameQueue::Push(int64_t time) {
    const std::lock_guard<std::mutex> lock(mutex_);
    ring_.at(pushed_ % ring_.size()).time = time;
    ++pushed_;
    changed_.notify_all();
}

void FrameQueue::Finish() {
    Close();
    CheckSink();
}

void FrameQueue::Close() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        closed_ = true;
        changed_.notify_all();
    }
    if (thread_.joinable()) {
        thread_.join();
    }
}

void FrameQueue::CheckSink() const {
    if (failure_ != nullptr) {
        std::rethrow_exception(failure_);
    }
}

/// After a failure the frames are dropped.
void FrameQueue::Run() {
    std::unique_lock<std::mutex> lock(mutex_);
    const auto due = [this] { return closed_ || written_ < pushed_; };
    for (changed_.wait(lock, due); written_ < pushed_; changed_.wait(lock, due)) {
        Slot& slot = ring_.at(written_ % ring_.size());
        if (failure_ == nullptr) {
            lock.unlock();
            const std::exception_ptr failure = Write(slot);
            lock.lock();
            failure_ = failure;
        }
        ++written_;
        changed_.notify_all();
    }
}

std::exception_ptr FrameQueue::Write(Slot& slot) {
    try {
        sink_.Write(slot.frame, slot.time);
        return nullptr;
    } catch (...) {
        return std::current_exception();
    }
}
