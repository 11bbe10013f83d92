#include "WindowRenderer.h"

#include <system/window.h>

#include <utility>

namespace {

void Read(void* picture, int32_t row, int32_t rows, uint8_t* rgba) {
    ConvertToRgba(*static_cast<Picture*>(picture), row, rows, rgba);
}

void Free(void* picture) {
    delete static_cast<Picture*>(picture);
}

}  // namespace

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

bool WindowRenderer::Render(Picture picture, int64_t timestampNs) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const PictureFormat format = picture.format;
    native_window_set_buffers_timestamp(window_, timestampNs);
    ANativeWindow_setBuffersTransform(window_, transform_);
    const ARect crop = {0, 0, format.width, format.height};
    native_window_set_crop(window_, &crop);
    auto waiting = std::make_unique<Picture>(std::move(picture));
    const NativeWindowPicture posted = {format.bufferWidth, format.bufferHeight, Read, Free,
                                        waiting.get()};
    if (native_window_post_picture(window_, &posted) != 0) {
        return false;
    }
    waiting.release();  // NOLINT(bugprone-unused-return-value): Free does it.
    return true;
}
