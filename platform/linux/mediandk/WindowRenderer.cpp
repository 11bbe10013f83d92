#include "WindowRenderer.h"

#include <system/window.h>

#include <utility>

WindowRenderer::WindowRenderer(ANativeWindow* window, int transform,
                               std::shared_ptr<FrameFlow> flow)
    : window_(native_window_new_reference(window)), transform_(transform), flow_(std::move(flow)) {
    const auto latch = [](void* self) { static_cast<WindowRenderer*>(self)->flow_->Latch(); };
    native_window_set_latch_listener(window_, latch, this);
}

WindowRenderer::~WindowRenderer() {
    native_window_remove_latch_listener(window_, this);
    ANativeWindow_release(window_);
}

bool WindowRenderer::Render(const Picture& picture, int64_t timestampNs) {
    constexpr int kPixelSize = 4;
    const std::lock_guard<std::mutex> lock(mutex_);
    const PictureFormat& format = picture.format;
    ANativeWindow_setBuffersGeometry(window_, format.bufferWidth, format.bufferHeight,
                                     WINDOW_FORMAT_RGBA_8888);
    ANativeWindow_Buffer buffer;
    if (ANativeWindow_lock(window_, &buffer, nullptr) != 0) {
        return false;
    }
    ConvertToRgba(picture, static_cast<uint8_t*>(buffer.bits), buffer.stride * kPixelSize);
    native_window_set_buffers_timestamp(window_, timestampNs);
    ANativeWindow_setBuffersTransform(window_, transform_);
    const ARect crop = {0, 0, format.width, format.height};
    native_window_set_crop(window_, &crop);
    return ANativeWindow_unlockAndPost(window_) == 0;
}
