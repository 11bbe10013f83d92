#include "Target.h"

#include <algorithm>

#include "support/ToolError.h"

namespace {

constexpr GLsizei kSamples = 4;

/// Attaches storage of \p size to the bound framebuffer.
void Attach(GLenum attachment, GLuint renderbuffer, GLsizei samples, GLenum format, Size size) {
    GLES3::glBindRenderbuffer(GL_RENDERBUFFER, renderbuffer);
    GLES3::glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, size.width,
                                            size.height);
    GLES3::glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, renderbuffer);
}

void CheckComplete() {
    if (GLES3::glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
        throw ToolError("the GL has no framebuffers of this size");
    }
}

}  // namespace

Target::Target(Size size) : size_(size) {
    GLES3::glGenFramebuffers(2, framebuffers_);
    GLES3::glGenRenderbuffers(3, renderbuffers_);
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, framebuffers_[1]);
    Attach(GL_COLOR_ATTACHMENT0, renderbuffers_[2], 0, GL_RGBA8, size);
    CheckComplete();
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, framebuffers_[0]);
    Attach(GL_COLOR_ATTACHMENT0, renderbuffers_[0], kSamples, GL_RGBA8, size);
    Attach(GL_DEPTH_ATTACHMENT, renderbuffers_[1], kSamples, GL_DEPTH_COMPONENT24, size);
    CheckComplete();
}

Target::~Target() {
    GLES3::glDeleteFramebuffers(2, framebuffers_);
    GLES3::glDeleteRenderbuffers(3, renderbuffers_);
}

void Target::Bind() const {
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, framebuffers_[0]);
    GLES3::glViewport(0, 0, size_.width, size_.height);
}

Image Target::Read() const {
    Image bottomUp(size_);
    GLES3::glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffers_[0]);
    GLES3::glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffers_[1]);
    GLES3::glBlitFramebuffer(0, 0, size_.width, size_.height, 0, 0, size_.width, size_.height,
                             GL_COLOR_BUFFER_BIT, GL_NEAREST);
    GLES3::glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffers_[1]);
    GLES3::glReadPixels(0, 0, size_.width, size_.height, GL_RGBA, GL_UNSIGNED_BYTE,
                        bottomUp.pixels.data());

    Image image(size_);
    for (int y = 0; y < size_.height; ++y) {
        std::copy_n(bottomUp.At(0, size_.height - 1 - y), size_.width * Image::kChannels,
                    image.At(0, y));
    }
    return image;
}
