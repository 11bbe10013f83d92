#include "PixelTexture.h"

#include <cstring>
#include <utility>

#include "GLErrors.h"

namespace {

void SetTightRows() {
    GLES3::glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    GLES3::glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    GLES3::glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    GLES3::glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
}

}  // namespace

size_t PixelLayout::byteSize() const {
    const uint64_t pixels = static_cast<uint64_t>(width) * static_cast<uint64_t>(height);
    const uint64_t bytes = pixels * (format == GL_RGBA ? 4 : 3);
    Require(bytes <= PTRDIFF_MAX, VE_ERROR_MEMORY);
    return static_cast<size_t>(bytes);
}

PixelTexture::PixelTexture(GLNames& names, const PixelLayout& layout, bool delayed)
    : layout_(layout), texture_(names.makeTexture()), delayed_(delayed) {
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    GLES3::glBindTexture(GL_TEXTURE_2D, texture_);
    GLES3::glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(layout.format), layout.width,
                        layout.height, 0, layout.format, GL_UNSIGNED_BYTE, nullptr);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    if (delayed) {
        makeBuffers(names);
    }
    RequireNoGLError();
}

void PixelTexture::makeBuffers(GLNames& names) {
    for (uint32_t& buffer : buffers_) {
        buffer = names.makeBuffer();
        GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
        GLES3::glBufferData(GL_PIXEL_UNPACK_BUFFER, static_cast<GLsizeiptr>(layout_.byteSize()),
                            nullptr, GL_STREAM_DRAW);
    }
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
}

/// Invalidating the buffer lets GL go on reading its old contents elsewhere.
void PixelTexture::stage(const void* pixels) {
    if (!delayed_ || pixels == nullptr) {
        return;
    }
    const size_t size = layout_.byteSize();
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffers_[0]);
    void* store = GLES3::glMapBufferRange(GL_PIXEL_UNPACK_BUFFER, 0, static_cast<GLsizeiptr>(size),
                                          GL_MAP_WRITE_BIT | GL_MAP_INVALIDATE_BUFFER_BIT);
    bool staged = store != nullptr;
    if (staged) {
        std::memcpy(store, pixels, size);
        staged = GLES3::glUnmapBuffer(GL_PIXEL_UNPACK_BUFFER) != GL_FALSE;
    }
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    Require(staged, VE_ERROR_MEMORY);
}

bool PixelTexture::commit(const void* pixels) {
    if (!delayed_) {
        if (pixels != nullptr) {
            upload(0, pixels);
        }
        return pixels != nullptr;
    }
    const bool due = pending_;
    if (due) {
        upload(buffers_[1], nullptr);
    }
    pending_ = pixels != nullptr;
    if (pending_) {
        std::swap(buffers_[0], buffers_[1]);
    }
    return due;
}

void PixelTexture::upload(uint32_t buffer, const void* pixels) {
    SetTightRows();
    GLES3::glBindTexture(GL_TEXTURE_2D, texture_);
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
    GLES3::glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, layout_.width, layout_.height, layout_.format,
                           GL_UNSIGNED_BYTE, pixels);
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    filled_ = true;
}
