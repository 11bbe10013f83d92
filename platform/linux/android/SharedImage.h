#pragma once

#include <EGL/egl.h>

#include <memory>

#include "FrameQueue.h"

/// An RGBA image that textures of any target can show. It belongs to the display and not to the
/// context that made it, so it may be destroyed on any thread, with no context current.
class SharedImage {
public:
    /// Needs a current context, as Upload and ShowIn do. \return null where there can be no such
    /// image.
    static std::unique_ptr<SharedImage> Create(int width, int height);
    ~SharedImage();
    SharedImage(const SharedImage&) = delete;
    SharedImage& operator=(const SharedImage&) = delete;

    bool Fits(const WindowFrame& frame) const;
    void Upload(const WindowFrame& frame) const;
    /// Makes the image that of the texture bound to \p target.
    void ShowIn(unsigned target) const;

private:
    SharedImage(int width, int height, EGLImage image);

    const int width_;
    const int height_;
    EGLDisplay display_;
    EGLImage image_;
};
