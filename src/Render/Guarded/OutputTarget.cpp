#include "OutputTarget.h"

#include "GLErrors.h"

namespace {

/// \return whether the texture has new storage, with undefined contents.
bool GiveStorage(uint32_t format, int32_t width, int32_t height) {
    GLint immutable = GL_FALSE;
    GLES3::glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_IMMUTABLE_FORMAT, &immutable);
    if (immutable != GL_FALSE) {
        return false;
    }
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    GLES3::glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), width, height, 0, format,
                        GL_UNSIGNED_BYTE, nullptr);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    return true;
}

void RequireDrawable() {
    RequireNoGLError();
    Require(GLES3::glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE,
            VE_ERROR_GL);
}

}  // namespace

OutputTarget::OutputTarget(GLNames& names, const VERendererOptions& options)
    : framebuffer_(options.toFramebuffer ? options.outputFramebuffer : names.makeFramebuffer()),
      firstRowOnTop_(options.toFramebuffer),
      width_(options.outputWidth),
      height_(options.outputHeight) {
    if (!options.toFramebuffer) {
        attach(options);
        return;
    }
    Require(framebuffer_ == 0 || GLES3::glIsFramebuffer(framebuffer_) != GL_FALSE, VE_ERROR_GL);
    GLES3::glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_);
    RequireDrawable();
}

void OutputTarget::attach(const VERendererOptions& options) {
    GLES3::glBindTexture(GL_TEXTURE_2D, options.outputTexture);
    const bool isRgb = options.outputFormat == VE_FORMAT_RGB;
    takesCopies_ = GiveStorage(isRgb ? GL_RGB : GL_RGBA, width_, height_);
    rgbaTexture_ = takesCopies_ && !isRgb ? options.outputTexture : 0;
    GLES3::glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_);
    GLES3::glFramebufferTexture2D(GL_DRAW_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                                  options.outputTexture, 0);
    RequireDrawable();
    if (takesCopies_) {
        static constexpr GLfloat kTransparentBlack[4] = {};
        GLES3::glClearBufferfv(GL_COLOR, 0, kTransparentBlack);
    }
}

void OutputTarget::begin() const {
    bind();
    GLES3::glClear(GL_COLOR_BUFFER_BIT);
}

OVR::Matrix4<float> OutputTarget::upright(const OVR::Matrix4<float>& view) const {
    static constexpr OVR::Matrix4<float> kFlip = {
        {{1, 0, 0, 0}, {0, -1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    return firstRowOnTop_ ? Multiply(kFlip, view) : view;
}

void OutputTarget::beginWith(uint32_t framebuffer) const {
    bind();
    GLES3::glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer);
    GLES3::glBlitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_COLOR_BUFFER_BIT,
                             GL_NEAREST);
}

void OutputTarget::bind() const {
    GLES3::glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_);
    GLES3::glViewport(0, 0, width_, height_);
}
