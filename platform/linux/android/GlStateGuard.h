#pragma once

#include <GLES3/gl3.h>

#include <array>

/// Prepares the GL state for an upload to a 2D texture, and restores it.
class GlUploadStateGuard {
public:
    GlUploadStateGuard() {
        for (size_t i = 0; i < kUnpack.size(); ++i) {
            glGetIntegerv(kUnpack[i], &unpack_[i]);
            glPixelStorei(kUnpack[i], kUnpack[i] == GL_UNPACK_ALIGNMENT ? kPixelSize : 0);
        }
        glGetIntegerv(GL_PIXEL_UNPACK_BUFFER_BINDING, &unpackBuffer_);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
        glGetIntegerv(GL_TEXTURE_BINDING_2D, &texture_);
    }

    ~GlUploadStateGuard() {
        for (size_t i = 0; i < kUnpack.size(); ++i) {
            glPixelStorei(kUnpack[i], unpack_[i]);
        }
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, static_cast<GLuint>(unpackBuffer_));
        glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(texture_));
    }

    GlUploadStateGuard(const GlUploadStateGuard&) = delete;
    GlUploadStateGuard& operator=(const GlUploadStateGuard&) = delete;

private:
    static constexpr GLint kPixelSize = 4;
    static constexpr std::array<GLenum, 4> kUnpack = {GL_UNPACK_ALIGNMENT, GL_UNPACK_ROW_LENGTH,
                                                      GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS};

    std::array<GLint, kUnpack.size()> unpack_{};
    GLint unpackBuffer_ = 0;
    GLint texture_ = 0;
};
