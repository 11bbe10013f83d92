#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// A picture in RGBA, first row first, without padding.
struct WindowFrame {
    WindowFrame(int width, int height);

    int width;
    int height;
    int64_t timestampNs = 0;
    std::unique_ptr<uint8_t[]> pixels;
};

/// Pictures on their way from windows to a surface texture. It keeps the newest only, and reuses
/// the memory of those that are done with: one is being filled, one waits, one is being shown.
/// Thread-safe; frames belong to whoever took them.
class FrameQueue {
public:
    using Listener = std::function<void()>;
    struct LatchListener {
        void (*call)(void* context) = nullptr;
        void* context = nullptr;
    };

    /// \name The producer's side
    /// \{
    /// A frame to fill, of the default size where \p width and \p height are 0; its pixels are
    /// undefined. \return null once abandoned.
    std::unique_ptr<WindowFrame> Dequeue(int width, int height);
    /// Makes \p frame the newest, and calls the listener on this thread.
    void Queue(std::unique_ptr<WindowFrame> frame);
    /// To be called when a frame is acquired, with the queue locked.
    void SetLatchListener(const LatchListener& listener);
    void RemoveLatchListener(const void* context);
    /// \}

    /// \name The consumer's side
    /// \{
    /// \return the newest frame, or null where that was acquired already.
    std::unique_ptr<WindowFrame> Acquire();
    void Recycle(std::unique_ptr<WindowFrame> frame);
    void SetDefaultSize(int width, int height);
    void SetListener(Listener listener);
    /// Frees all frames and takes no more.
    void Abandon();
    bool IsAbandoned() const;
    /// \}

private:
    std::unique_ptr<WindowFrame> TakeSpare();

    mutable std::mutex mutex_;
    std::unique_ptr<WindowFrame> newest_;
    std::vector<std::unique_ptr<WindowFrame>> spare_;
    Listener listener_;
    LatchListener latchListener_;
    int defaultWidth_ = 1;
    int defaultHeight_ = 1;
    bool abandoned_ = false;
};
