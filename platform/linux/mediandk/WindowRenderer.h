#pragma once

#include <android/native_window.h>

#include <mutex>

#include "Picture.h"

/// Draws pictures into a window, of which it holds a reference. Thread-safe.
class WindowRenderer {
public:
    explicit WindowRenderer(ANativeWindow* window);
    ~WindowRenderer();
    WindowRenderer(const WindowRenderer&) = delete;
    WindowRenderer& operator=(const WindowRenderer&) = delete;

    /// A window that nobody looks at any more is no error.
    void Render(const Picture& picture, int64_t timestampNs);

private:
    ANativeWindow* window_;
    std::mutex mutex_;
};
