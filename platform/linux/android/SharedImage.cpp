#include "SharedImage.h"

#include <GLES3/gl3.h>
// After gl3.h, whose types it uses.
#include <GLES2/gl2ext.h>

#include <algorithm>
#include <cstdint>

#include "GlStateGuard.h"

namespace {

EGLImage ImageOf(GLuint texture) {
    // EGL takes GL names as pointers. NOLINTNEXTLINE(performance-no-int-to-ptr)
    auto* buffer = reinterpret_cast<EGLClientBuffer>(static_cast<uintptr_t>(texture));
    return eglCreateImage(eglGetCurrentDisplay(), eglGetCurrentContext(), EGL_GL_TEXTURE_2D, buffer,
                          nullptr);
}

void UploadRows(int width, int row, int rows, const uint8_t* rgba) {
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, row, width, rows, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
}

/// The image keeps the texture's storage after the texture is deleted.
EGLImage NewImage(int width, int height) {
    const GlUploadStateGuard guard;
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexStorage2D(GL_TEXTURE_2D, 1, GL_RGBA8, width, height);
    EGLImage image = ImageOf(texture);
    glDeleteTextures(1, &texture);
    return image;
}

}  // namespace

std::unique_ptr<SharedImage> SharedImage::Create(int width, int height) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    if (width > largest || height > largest) {
        return nullptr;
    }
    EGLImage image = NewImage(width, height);
    return std::unique_ptr<SharedImage>(
        image != EGL_NO_IMAGE ? new SharedImage(width, height, image) : nullptr);
}

SharedImage::SharedImage(int width, int height, EGLImage image)
    : width_(width), height_(height), display_(eglGetCurrentDisplay()), image_(image) {}

SharedImage::~SharedImage() {
    eglDestroyImage(display_, image_);
}

bool SharedImage::Fits(const WindowFrame& frame) const {
    return frame.width == width_ && frame.height == height_;
}

void SharedImage::Upload(const WindowFrame& frame) {
    const GlUploadStateGuard guard;
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    ShowIn(GL_TEXTURE_2D);
    if (frame.pixels != nullptr) {
        UploadRows(width_, 0, height_, frame.pixels.get());
    } else {
        UploadPicture(frame.picture);
    }
    glDeleteTextures(1, &texture);
}

/// By parts that stay in the processor's cache until GL has copied them.
void SharedImage::UploadPicture(const NativeWindowPicture& picture) {
    constexpr int kPartSize = 128 << 10;
    constexpr int kPixelSize = 4;
    const int stride = picture.width * kPixelSize;
    const int most = std::max(2, kPartSize / stride / 2 * 2);
    part_.resize(static_cast<size_t>(most) * stride);
    for (int row = 0; row < picture.height; row += most) {
        const int rows = std::min(most, picture.height - row);
        picture.read(picture.context, row, rows, part_.data());
        UploadRows(picture.width, row, rows, part_.data());
    }
}

void SharedImage::ShowIn(unsigned target) const {
    static const auto show = reinterpret_cast<PFNGLEGLIMAGETARGETTEXTURE2DOESPROC>(
        eglGetProcAddress("glEGLImageTargetTexture2DOES"));
    show(target, image_);
}
