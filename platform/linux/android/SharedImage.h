#pragma once

#include <EGL/egl.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "FrameQueue.h"

/// An RGBA image that textures of any target can show. It belongs to the EGL display instead of the
/// context, so it may be destroyed on any thread, without a current context.
class SharedImage {
public:
    /// Needs a current context, like Upload and ShowIn. \return null if the size is not supported.
    static std::unique_ptr<SharedImage> Create(int width, int height);
    ~SharedImage();
    SharedImage(const SharedImage&) = delete;
    SharedImage& operator=(const SharedImage&) = delete;

    bool Fits(const WindowFrame& frame) const;
    void Upload(const WindowFrame& frame);
    /// Makes it the image of the texture that is bound to \p target.
    void ShowIn(unsigned target) const;

private:
    SharedImage(int width, int height, EGLImage image);
    void UploadPicture(const NativeWindowPicture& picture);

    const int width_;
    const int height_;
    EGLDisplay display_;
    EGLImage image_;
    std::vector<uint8_t> part_;  ///< Of a picture that is read; kept for the next one.
};
