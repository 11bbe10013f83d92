#pragma once

#include <android/native_window.h>

#include <memory>
#include <mutex>

#include "FrameFlow.h"
#include "Picture.h"

/// Draws pictures into a window, of which it holds a reference. Thread-safe.
class WindowRenderer {
public:
    /// \param flow is told when pictures are latched.
    WindowRenderer(ANativeWindow* window, std::shared_ptr<FrameFlow> flow);
    ~WindowRenderer();
    WindowRenderer(const WindowRenderer&) = delete;
    WindowRenderer& operator=(const WindowRenderer&) = delete;

    /// \return false where nobody looks at the window any more, which is no error.
    bool Render(const Picture& picture, int64_t timestampNs);

private:
    ANativeWindow* window_;
    const std::shared_ptr<FrameFlow> flow_;
    std::mutex mutex_;
};
