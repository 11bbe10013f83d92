#pragma once

#include <android/native_window.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>

#include "FrameQueue.h"

/// A window that posts to a queue. It is created with one reference.
struct ANativeWindow {
    explicit ANativeWindow(std::shared_ptr<FrameQueue> frames) : queue(std::move(frames)) {}

    const std::shared_ptr<FrameQueue> queue;
    std::atomic<int> references{1};

    /// Queues a frame with the time stamp, crop and transform that were set.
    void Post(std::unique_ptr<WindowFrame> frame);

    std::mutex mutex;  ///< Guards all below.
    int width = 0;     ///< 0, 0: the consumer's default.
    int height = 0;
    ARect crop = {};
    int transform = 0;
    std::optional<int64_t> timestampNs;   ///< None: the time of the post.
    std::unique_ptr<WindowFrame> locked;  ///< The frame that the producer fills.
};
