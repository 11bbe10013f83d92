#include "render/GPUTextureFilter/GLFbo.h"

#include "gl/GLES3.h"

void GLFbo::bindTexture(uint32_t texture) const {
    GLES3::glActiveTexture(GL_TEXTURE1);
    GLES3::glBindTexture(GL_TEXTURE_2D, texture);
    GLES3::glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(m_format),
                        static_cast<GLsizei>(m_width), static_cast<GLsizei>(m_height), 0, m_format,
                        GL_UNSIGNED_BYTE, nullptr);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    // Frozen: destination storage
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    GLES3::glBindTexture(GL_TEXTURE_2D, 0);
    GLES3::glActiveTexture(GL_TEXTURE0);

    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, m_fbo);
    GLES3::glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, 0);
}
