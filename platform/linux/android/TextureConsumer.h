#pragma once

#include <EGL/egl.h>

#include <memory>
#include <mutex>

#include "FrameQueue.h"
#include "SharedImage.h"
#include "TransformMatrix.h"

/// Shows the newest frame of a queue in an external texture.
class TextureConsumer {
public:
    enum class Result {
        kDone,
        kReleased,
        kNoContext,
        kOtherContext,
        kDetached,
        kAttached,
        kFailed
    };

    explicit TextureConsumer(unsigned texture) : texture_(texture) {}

    /// The producers' end.
    const std::shared_ptr<FrameQueue>& Queue() const { return queue_; }

    /// Latches the newest frame, if it was not latched yet, and binds the texture to
    /// GL_TEXTURE_EXTERNAL_OES of the active unit. Only the first call's context may be used later.
    Result Update();

    /// Deletes the texture. The latched frame stays.
    Result Detach();
    /// Shows the latched frame, and all that follow, in a texture of the current context.
    Result Attach(unsigned texture);

    /// Frees all pictures. The texture keeps the last one.
    void Release();

    /// The latched frame's, in nanoseconds; 0 before the first.
    int64_t Timestamp() const;
    /// TransformOf the latched frame; the identity before the first.
    Matrix Transform() const;

private:
    Result CheckContext();
    Result Latch(const WindowFrame& frame);

    const std::shared_ptr<FrameQueue> queue_ = std::make_shared<FrameQueue>();

    mutable std::mutex mutex_;  ///< Guards all below.
    unsigned texture_;
    bool attached_ = true;
    EGLDisplay display_ = EGL_NO_DISPLAY;
    EGLContext context_ = EGL_NO_CONTEXT;
    std::unique_ptr<SharedImage> image_;  ///< Of the latched frame.
    int64_t timestampNs_ = 0;
    Matrix matrix_ = kIdentity;
};
