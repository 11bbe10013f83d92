#pragma once

#include <memory>

#include "android/NativeWindow.h"

/// A window without the Java objects around it, and the consumer's end of it.
struct TestWindow {
    std::shared_ptr<FrameQueue> queue = std::make_shared<FrameQueue>();
    ANativeWindow* window = new ANativeWindow(queue);

    TestWindow() = default;
    ~TestWindow() { ANativeWindow_release(window); }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
};
