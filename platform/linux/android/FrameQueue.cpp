#include "FrameQueue.h"

#include <utility>

namespace {

constexpr size_t kPixelSize = 4;

}  // namespace

// The pixels are not initialized: every producer writes them all.
WindowFrame::WindowFrame(int frameWidth, int frameHeight)
    : width(frameWidth),
      height(frameHeight),
      pixels(new uint8_t[kPixelSize * static_cast<size_t>(width) * static_cast<size_t>(height)]) {}

WindowFrame::WindowFrame(const NativeWindowPicture& posted)
    : width(posted.width), height(posted.height), picture(posted) {}

WindowFrame::~WindowFrame() {
    if (pixels == nullptr) {
        picture.free(picture.context);
    }
}

std::unique_ptr<WindowFrame> FrameQueue::Dequeue(int width, int height) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (abandoned_) {
        return nullptr;
    }
    const int wantedWidth = width > 0 ? width : defaultWidth_;
    const int wantedHeight = height > 0 ? height : defaultHeight_;
    auto spare = TakeSpare();
    lock.unlock();
    if (spare != nullptr && spare->width == wantedWidth && spare->height == wantedHeight) {
        return spare;
    }
    return std::make_unique<WindowFrame>(wantedWidth, wantedHeight);
}

void FrameQueue::Queue(std::unique_ptr<WindowFrame> frame) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (abandoned_) {
        return;
    }
    std::swap(newest_, frame);
    KeepPixels(frame);
    const Listener listener = listener_;
    lock.unlock();
    if (listener) {
        listener();
    }
}

std::unique_ptr<WindowFrame> FrameQueue::Acquire() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return std::move(newest_);
}

void FrameQueue::Release(std::unique_ptr<WindowFrame> frame) {
    Recycle(std::move(frame));
    const std::lock_guard<std::mutex> lock(mutex_);
    if (latchListener_.call != nullptr) {
        latchListener_.call(latchListener_.context);
    }
}

void FrameQueue::SetLatchListener(const LatchListener& listener) {
    const std::lock_guard<std::mutex> lock(mutex_);
    latchListener_ = listener;
}

void FrameQueue::RemoveLatchListener(const void* context) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (latchListener_.context == context) {
        latchListener_ = {};
    }
}

void FrameQueue::Recycle(std::unique_ptr<WindowFrame> frame) {
    const std::lock_guard<std::mutex> lock(mutex_);
    KeepPixels(frame);
}

void FrameQueue::SetDefaultSize(int width, int height) {
    const std::lock_guard<std::mutex> lock(mutex_);
    defaultWidth_ = width;
    defaultHeight_ = height;
}

void FrameQueue::SetListener(Listener listener) {
    const std::lock_guard<std::mutex> lock(mutex_);
    listener_ = std::move(listener);
}

void FrameQueue::Abandon() {
    const std::lock_guard<std::mutex> lock(mutex_);
    abandoned_ = true;
    newest_ = nullptr;
    spare_.clear();
    listener_ = nullptr;
}

bool FrameQueue::IsAbandoned() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return abandoned_;
}

void FrameQueue::KeepPixels(std::unique_ptr<WindowFrame>& frame) {
    if (!abandoned_ && frame != nullptr && frame->pixels != nullptr) {
        spare_.push_back(std::move(frame));
    }
}

std::unique_ptr<WindowFrame> FrameQueue::TakeSpare() {
    if (spare_.empty()) {
        return nullptr;
    }
    auto spare = std::move(spare_.back());
    spare_.pop_back();
    return spare;
}
