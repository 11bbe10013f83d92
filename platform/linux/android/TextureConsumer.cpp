#include "TextureConsumer.h"

#include <GLES3/gl3.h>
// After gl3.h, whose types it uses.
#include <GLES2/gl2ext.h>

TextureConsumer::Result TextureConsumer::Update() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (queue_->IsAbandoned()) {
        return Result::kReleased;
    }
    Result result = attached_ ? CheckContext() : Result::kDetached;
    if (result != Result::kDone) {
        return result;
    }
    glBindTexture(GL_TEXTURE_EXTERNAL_OES, texture_);
    if (auto frame = queue_->Acquire()) {
        result = Latch(*frame);
        queue_->Release(std::move(frame));
    }
    return result;
}

TextureConsumer::Result TextureConsumer::Detach() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!attached_) {
        return Result::kDetached;
    }
    if (context_ != EGL_NO_CONTEXT) {  // Else it was not used yet.
        const Result result = CheckContext();
        if (result != Result::kDone) {
            return result;
        }
        glDeleteTextures(1, &texture_);
    }
    attached_ = false;
    display_ = EGL_NO_DISPLAY;
    context_ = EGL_NO_CONTEXT;
    return Result::kDone;
}

TextureConsumer::Result TextureConsumer::Attach(unsigned texture) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (attached_) {
        return Result::kAttached;
    }
    const Result result = CheckContext();
    if (result == Result::kDone) {
        texture_ = texture;
        attached_ = true;
        glBindTexture(GL_TEXTURE_EXTERNAL_OES, texture_);
        if (image_ != nullptr) {
            image_->ShowIn(GL_TEXTURE_EXTERNAL_OES);
        }
    }
    return result;
}

void TextureConsumer::Release() {
    queue_->Abandon();
    const std::lock_guard<std::mutex> lock(mutex_);
    image_ = nullptr;
}

int64_t TextureConsumer::Timestamp() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return timestampNs_;
}

Matrix TextureConsumer::Transform() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return matrix_;
}

TextureConsumer::Result TextureConsumer::CheckContext() {
    EGLDisplay display = eglGetCurrentDisplay();
    EGLContext context = eglGetCurrentContext();
    if (display == EGL_NO_DISPLAY || context == EGL_NO_CONTEXT) {
        return Result::kNoContext;
    }
    if (context_ == EGL_NO_CONTEXT) {
        display_ = display;
        context_ = context;
    }
    return display == display_ && context == context_ ? Result::kDone : Result::kOtherContext;
}

TextureConsumer::Result TextureConsumer::Latch(const WindowFrame& frame) {
    if (image_ == nullptr || !image_->Fits(frame)) {
        image_ = SharedImage::Create(frame.width, frame.height);
        if (image_ == nullptr) {
            return Result::kFailed;
        }
    }
    image_->Upload(frame);
    image_->ShowIn(GL_TEXTURE_EXTERNAL_OES);
    timestampNs_ = frame.timestampNs;
    matrix_ = TransformOf(frame);
    return Result::kDone;
}
