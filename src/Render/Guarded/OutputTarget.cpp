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

}  // namespace

OutputTarget::OutputTarget(GLNames& names, uint32_t texture, uint32_t format, int32_t width,
                           int32_t height)
    : framebuffer_(names.makeFramebuffer()), width_(width), height_(height) {
    GLES3::glBindTexture(GL_TEXTURE_2D, texture);
    const bool isNew = GiveStorage(format, width, height);
    GLES3::glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_);
    GLES3::glFramebufferTexture2D(GL_DRAW_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture,
                                  0);
    RequireNoGLError();
    Require(GLES3::glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE,
            VE_ERROR_GL);
    if (isNew) {
        static constexpr GLfloat kTransparentBlack[4] = {};
        GLES3::glClearBufferfv(GL_COLOR, 0, kTransparentBlack);
    }
}

void OutputTarget::begin() const {
    GLES3::glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_);
    GLES3::glViewport(0, 0, width_, height_);
    GLES3::glClear(GL_COLOR_BUFFER_BIT);
}
