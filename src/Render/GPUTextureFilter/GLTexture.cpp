#include "render/GPUTextureFilter/GLTexture.h"

#include <cstring>

#include "gl/GLES3.h"

namespace {

uint32_t BytesPerPixel(uint32_t format) {
    switch (format) {
        case GL_RGB: return 3;
        case GL_RGBA: return 4;
        default: return 0;
    }
}

void SetTexParameters() {
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

/// Allocates the bound texture and fills it from \p data.
void SpecifyImage(const GLTexture& texture, const void* data) {
    GLES3::glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(texture.m_format),
                        static_cast<GLsizei>(texture.m_width),
                        static_cast<GLsizei>(texture.m_height), 0, texture.m_format,
                        GL_UNSIGNED_BYTE, data);
}

}  // namespace

GLTexture::GLTexture(uint32_t format, uint32_t texture, uint32_t width, uint32_t height,
                     bool usePbo)
    : m_format(format), m_textureId(texture), m_width(width), m_height(height), m_usePbo(usePbo) {
    GLES3::glBindTexture(GL_TEXTURE_2D, texture);
    SetTexParameters();
    if (m_usePbo) {
        createPixelBuffers();
    }
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
}

void GLTexture::createPixelBuffers() {
    m_byteSize = m_width * m_height * BytesPerPixel(m_format);
    m_pixels = new unsigned char[m_byteSize];
    SpecifyImage(*this, m_pixels);
    GLES3::glBindTexture(GL_TEXTURE_2D, 0);

    GLES3::glGenBuffers(2, m_pbo);
    for (const uint32_t pbo : m_pbo) {
        GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, pbo);
        GLES3::glBufferData(GL_PIXEL_UNPACK_BUFFER, static_cast<GLsizeiptr>(m_byteSize), nullptr,
                            GL_STREAM_DRAW);
    }
}

void GLTexture::loadData(const void* data) {
    if (!m_usePbo) {
        GLES3::glBindTexture(GL_TEXTURE_2D, m_textureId);
        SpecifyImage(*this, data);
        GLES3::glBindTexture(GL_TEXTURE_2D, 0);
        return;
    }
    if (m_pendingPbo >= 0) {
        finishPending();
    }
    if (data != nullptr) {
        queue(data);
    }
    GLES3::glBindTexture(GL_TEXTURE_2D, 0);
}

/// Copies the pending buffer into the texture and leaves both bound.
// Frozen: pending unpack buffer
void GLTexture::finishPending() {
    GLES3::glBindTexture(GL_TEXTURE_2D, m_textureId);
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, m_pbo[m_pendingPbo]);
    GLES3::glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, static_cast<GLsizei>(m_width),
                           static_cast<GLsizei>(m_height), m_format, GL_UNSIGNED_BYTE, nullptr);
    m_pendingPbo = -1;
}

/// Writes the frame into the next buffer. Its old memory is orphaned first, since GL may still read
/// from it.
// Frozen: dropped frame
void GLTexture::queue(const void* data) {
    const auto size = static_cast<GLsizeiptr>(m_byteSize);
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, m_pbo[m_nextPbo]);
    GLES3::glBufferData(GL_PIXEL_UNPACK_BUFFER, size, nullptr, GL_STREAM_DRAW);
    void* store = GLES3::glMapBufferRange(GL_PIXEL_UNPACK_BUFFER, 0, size, GL_MAP_WRITE_BIT);
    if (store != nullptr) {
        std::memcpy(store, data, m_byteSize);
        m_pendingPbo = m_nextPbo;
        m_nextPbo = (m_nextPbo + 1) % 2;
        GLES3::glUnmapBuffer(GL_PIXEL_UNPACK_BUFFER);
    }
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
}
