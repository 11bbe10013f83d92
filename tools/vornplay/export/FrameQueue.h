#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <thread>

#include "FrameSink.h"

/// Writes frames on a thread, while the next one is drawn.
class FrameQueue {
public:
    /// \param sink must outlive the queue, which alone uses it until Finish()
    FrameQueue(FrameSink& sink, Size size);
    /// Writes the frames that wait, without a report of errors.
    ~FrameQueue();
    FrameQueue(const FrameQueue&) = delete;
    FrameQueue& operator=(const FrameQueue&) = delete;

    /// The next frame, to be filled. Waits until there is room for it. \throws what the sink threw
    Image& Next();
    /// Hands over the frame that Next() gave. \param time as FrameSink::Write takes it
    void Push(int64_t time);
    /// Waits until all frames are written. Nothing may be pushed then. \throws what the sink threw
    void Finish();

private:
    struct Slot {
        Image frame;
        int64_t time = 0;
    };

    void Run();
    std::exception_ptr Write(Slot& slot);
    void Close();
    void CheckSink() const;

    FrameSink& sink_;
    std::array<Slot, 2> ring_;  ///< One is filled while the other is written.
    std::mutex mutex_;
    std::condition_variable changed_;
    size_t pushed_ = 0;
    size_t written_ = 0;
    bool closed_ = false;
    std::exception_ptr failure_;
    std::thread thread_;
};
