#pragma once

#include <cstdint>
#include <memory>
#include <vector>

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

/// Reads a decoder's picture as its consumer does.
inline std::vector<uint8_t> ReadPixels(const WindowFrame& frame) {
    constexpr size_t kPixelSize = 4;
    std::vector<uint8_t> rgba(kPixelSize * frame.width * frame.height);
    frame.picture.read(frame.picture.context, 0, frame.height, rgba.data());
    return rgba;
}
