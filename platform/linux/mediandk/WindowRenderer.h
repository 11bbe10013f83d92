#pragma once

#include <android/native_window.h>

#include <memory>
#include <mutex>

#include "FrameFlow.h"
#include "Picture.h"

/// Draws pictures into a window and holds a reference to it. Thread-safe.
class WindowRenderer {
public:
    /// \param transform bits of ANativeWindowTransform.
    /// \param flow counts the latched pictures.
    WindowRenderer(ANativeWindow* window, int transform, std::shared_ptr<FrameFlow> flow);
    ~WindowRenderer();
    WindowRenderer(const WindowRenderer&) = delete;
    WindowRenderer& operator=(const WindowRenderer&) = delete;

    /// \return false if the window's consumer was released, which is not an error.
    bool Render(Picture picture, int64_t timestampNs);

private:
    ANativeWindow* window_;
    const int transform_;
    const std::shared_ptr<FrameFlow> flow_;
    std::mutex mutex_;
};
