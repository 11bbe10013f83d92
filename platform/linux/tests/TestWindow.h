#pragma once

#include <memory>

#include "android/NativeWindow.h"

/// A window without Java objects, and its consumer's end.
struct TestWindow {
    std::shared_ptr<FrameQueue> queue = std::make_shared<FrameQueue>();
    ANativeWindow* window = new ANativeWindow(queue);

    TestWindow() = default;
    ~TestWindow() { ANativeWindow_release(window); }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
};
