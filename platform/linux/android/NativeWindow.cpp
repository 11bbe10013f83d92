#include "NativeWindow.h"

#include <system/window.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>

namespace {

int64_t Now() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

std::atomic<bool> strict{getenv("LINUX_PLATFORM_STRICT") != nullptr};

}  // namespace

void ANativeWindow::Post(std::unique_ptr<WindowFrame> frame) {
    std::unique_lock<std::mutex> lock(mutex);
    frame->timestampNs = timestampNs.value_or(Now());
    frame->crop = crop;
    frame->transform = transform;
    lock.unlock();
    queue->Queue(std::move(frame));
}

extern "C" {

void ANativeWindow_acquire(ANativeWindow* window) {
    ++window->references;
}

void ANativeWindow_release(ANativeWindow* window) {
    if (window != nullptr && --window->references == 0) {
        delete window;
    }
}

int32_t ANativeWindow_getWidth(ANativeWindow* window) {
    const std::lock_guard<std::mutex> lock(window->mutex);
    return window->width;
}

int32_t ANativeWindow_getHeight(ANativeWindow* window) {
    const std::lock_guard<std::mutex> lock(window->mutex);
    return window->height;
}

int32_t ANativeWindow_getFormat(ANativeWindow* /*window*/) {
    return WINDOW_FORMAT_RGBA_8888;
}

int32_t ANativeWindow_setBuffersGeometry(ANativeWindow* window, int32_t width, int32_t height,
                                         int32_t format) {
    const bool neither = width == 0 && height == 0;
    const bool both = width > 0 && height > 0;
    if ((!neither && !both) || (format != 0 && format != WINDOW_FORMAT_RGBA_8888)) {
        return -EINVAL;
    }
    const std::lock_guard<std::mutex> lock(window->mutex);
    window->width = width;
    window->height = height;
    return 0;
}

int32_t ANativeWindow_setBuffersTransform(ANativeWindow* window, int32_t transform) {
    if (transform < 0 || transform > ANATIVEWINDOW_TRANSFORM_ROTATE_270) {
        return -EINVAL;
    }
    const std::lock_guard<std::mutex> lock(window->mutex);
    window->transform = transform;
    return 0;
}

int32_t ANativeWindow_lock(ANativeWindow* window, ANativeWindow_Buffer* buffer, ARect* dirty) {
    const std::lock_guard<std::mutex> lock(window->mutex);
    if (window->locked != nullptr) {
        return -EINVAL;
    }
    window->locked = window->queue->Dequeue(window->width, window->height);
    if (window->locked == nullptr) {
        return -ENODEV;
    }
    const WindowFrame& frame = *window->locked;
    *buffer = {frame.width, frame.height, frame.width, WINDOW_FORMAT_RGBA_8888, frame.pixels.get(),
               {}};
    if (dirty != nullptr) {
        *dirty = {0, 0, frame.width, frame.height};
    }
    return 0;
}

int32_t ANativeWindow_unlockAndPost(ANativeWindow* window) {
    std::unique_lock<std::mutex> lock(window->mutex);
    if (window->locked == nullptr) {
        return -EINVAL;
    }
    auto frame = std::move(window->locked);
    lock.unlock();
    window->Post(std::move(frame));
    return 0;
}

int native_window_is_strict(void) {
    return strict ? 1 : 0;
}

void native_window_set_strict(int on) {
    strict = on != 0;
}

ANativeWindow* native_window_new_reference(ANativeWindow* window) {
    if (strict) {
        return new ANativeWindow(window->queue);
    }
    ANativeWindow_acquire(window);
    return window;
}

int native_window_set_buffers_timestamp(ANativeWindow* window, int64_t timestampNs) {
    const std::lock_guard<std::mutex> lock(window->mutex);
    window->timestampNs = timestampNs;
    return 0;
}

int native_window_set_crop(ANativeWindow* window, const ARect* crop) {
    const std::lock_guard<std::mutex> lock(window->mutex);
    window->crop = crop != nullptr ? *crop : ARect{};
    return 0;
}

int native_window_post_picture(ANativeWindow* window, const NativeWindowPicture* picture) {
    if (window->queue->IsAbandoned()) {
        return -ENODEV;
    }
    window->Post(std::make_unique<WindowFrame>(*picture));
    return 0;
}

void native_window_set_latch_listener(ANativeWindow* window, void (*listener)(void*),
                                      void* context) {
    window->queue->SetLatchListener({listener, context});
}

void native_window_remove_latch_listener(ANativeWindow* window, void* context) {
    window->queue->RemoveLatchListener(context);
}

}  // extern "C"
