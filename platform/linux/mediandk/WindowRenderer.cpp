#include "WindowRenderer.h"

#include <system/window.h>

WindowRenderer::WindowRenderer(ANativeWindow* window) : window_(window) {
    ANativeWindow_acquire(window_);
}

WindowRenderer::~WindowRenderer() {
    ANativeWindow_release(window_);
}

void WindowRenderer::Render(const Picture& picture, int64_t timestampNs) {
    constexpr int kPixelSize = 4;
    const std::lock_guard<std::mutex> lock(mutex_);
    ANativeWindow_setBuffersGeometry(window_, picture.format.width, picture.format.height,
                                     WINDOW_FORMAT_RGBA_8888);
    ANativeWindow_Buffer buffer;
    if (ANativeWindow_lock(window_, &buffer, nullptr) != 0) {
        return;
    }
    ConvertToRgba(picture, static_cast<uint8_t*>(buffer.bits), buffer.stride * kPixelSize);
    native_window_set_buffers_timestamp(window_, timestampNs);
    ANativeWindow_unlockAndPost(window_);
}
