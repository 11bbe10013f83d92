#pragma once

#include <system/window.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// A picture: RGBA, first row first, or one that the producer reads when it is shown.
struct WindowFrame {
    WindowFrame(int frameWidth, int frameHeight);
    explicit WindowFrame(const NativeWindowPicture& posted);
    ~WindowFrame();
    WindowFrame(const WindowFrame&) = delete;
    WindowFrame& operator=(const WindowFrame&) = delete;

    int width;
    int height;
    int64_t timestampNs = 0;
    ARect crop = {};    ///< The part that has the picture; empty: all.
    int transform = 0;  ///< Bits of ANativeWindowTransform.
    std::unique_ptr<uint8_t[]> pixels;
    NativeWindowPicture picture = {};  ///< If there are no pixels.
};

/// Hands pictures from windows to a surface texture. It keeps the newest picture only and reuses
/// the pixels of the others, so there are three at most: one is filled, one waits, one is shown.
/// Thread-safe.
class FrameQueue {
public:
    using Listener = std::function<void()>;
    struct LatchListener {
        void (*call)(void* context) = nullptr;
        void* context = nullptr;
    };

    /// \name The producer's side
    /// \{
    /// A frame to fill, whose pixels are undefined. 0, 0 selects the default size.
    /// \return null after Abandon().
    std::unique_ptr<WindowFrame> Dequeue(int width, int height);
    /// Makes \p frame the newest, and calls the listener on this thread.
    void Queue(std::unique_ptr<WindowFrame> frame);
    /// Gives back a frame without queueing it.
    void Recycle(std::unique_ptr<WindowFrame> frame);
    /// Sets the listener that Release() calls for each frame, with the queue locked.
    void SetLatchListener(const LatchListener& listener);
    void RemoveLatchListener(const void* context);
    /// \}

    /// \name The consumer's side
    /// \{
    /// \return the newest frame; null if it was already acquired.
    std::unique_ptr<WindowFrame> Acquire();
    /// Gives back an acquired frame.
    void Release(std::unique_ptr<WindowFrame> frame);
    void SetDefaultSize(int width, int height);
    void SetListener(Listener listener);
    /// Frees all frames and accepts no more.
    void Abandon();
    bool IsAbandoned() const;
    /// \}

private:
    std::unique_ptr<WindowFrame> TakeSpare();
    void KeepPixels(std::unique_ptr<WindowFrame>& frame);

    mutable std::mutex mutex_;
    std::unique_ptr<WindowFrame> newest_;
    std::vector<std::unique_ptr<WindowFrame>> spare_;
    Listener listener_;
    LatchListener latchListener_;
    int defaultWidth_ = 1;
    int defaultHeight_ = 1;
    bool abandoned_ = false;
};
