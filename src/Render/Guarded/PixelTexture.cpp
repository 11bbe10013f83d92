#include "PixelTexture.h"

#include <cstring>
#include <utility>

#include "GLErrors.h"

namespace {

constexpr size_t kBytesPerPixel = 4;

void SetTightRows() {
    GLES3::glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    GLES3::glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    GLES3::glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    GLES3::glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
}

/// Four pixels at a time, in words of the platform's byte order, which is little-endian everywhere.
/// Clang for Android makes it loads of three and stores of four vectors.
void WidenToRgba(const uint8_t* rgb, size_t pixels, uint8_t* rgba) {
    constexpr uint32_t kOpaque = 0xFF000000;
    const size_t blocks = pixels / 4;
    for (size_t i = 0; i < blocks; ++i, rgb += 12, rgba += 16) {
        uint32_t in[3];
        std::memcpy(in, rgb, sizeof(in));
        const uint32_t out[4] = {in[0] | kOpaque, in[0] >> 24 | in[1] << 8 | kOpaque,
                                 in[1] >> 16 | in[2] << 16 | kOpaque, in[2] >> 8 | kOpaque};
        std::memcpy(rgba, out, sizeof(out));
    }
    for (size_t i = 4 * blocks; i < pixels; ++i, rgb += 3, rgba += 4) {
        std::memcpy(rgba, rgb, 3);
        rgba[3] = 255;
    }
}

}  // namespace

size_t PixelLayout::pixels() const {
    const uint64_t count = static_cast<uint64_t>(width) * static_cast<uint64_t>(height);
    Require(count <= PTRDIFF_MAX / kBytesPerPixel, VE_ERROR_MEMORY);
    return static_cast<size_t>(count);
}

PixelTexture::PixelTexture(GLNames& names, const PixelLayout& layout, bool delayed)
    : layout_(layout),
      size_(layout.pixels() * kBytesPerPixel),
      texture_(names.makeTexture()),
      delayed_(delayed) {
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    GLES3::glBindTexture(GL_TEXTURE_2D, texture_);
    GLES3::glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, layout.width, layout.height, 0, GL_RGBA,
                        GL_UNSIGNED_BYTE, nullptr);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    if (delayed) {
        makeBuffers(names);
    } else if (layout.isRgb) {
        widened_.resize(size_);
    }
    RequireNoGLError();
}

void PixelTexture::makeBuffers(GLNames& names) {
    for (uint32_t& buffer : buffers_) {
        buffer = names.makeBuffer();
        GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
        GLES3::glBufferData(GL_PIXEL_UNPACK_BUFFER, static_cast<GLsizeiptr>(size_), nullptr,
                            GL_STREAM_DRAW);
    }
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
}

/// Invalidating the buffer lets GL go on reading its old contents elsewhere.
void PixelTexture::stage(const void* pixels) {
    if (!delayed_ || pixels == nullptr) {
        return;
    }
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffers_[0]);
    void* store = GLES3::glMapBufferRange(GL_PIXEL_UNPACK_BUFFER, 0, static_cast<GLsizeiptr>(size_),
                                          GL_MAP_WRITE_BIT | GL_MAP_INVALIDATE_BUFFER_BIT);
    bool staged = store != nullptr;
    if (staged) {
        copy(pixels, static_cast<uint8_t*>(store));
        staged = GLES3::glUnmapBuffer(GL_PIXEL_UNPACK_BUFFER) != GL_FALSE;
    }
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    Require(staged, VE_ERROR_MEMORY);
}

bool PixelTexture::commit(const void* pixels) {
    if (!delayed_) {
        if (pixels != nullptr) {
            uploadTo(texture_, pixels);
            filled_ = true;
        }
        return pixels != nullptr;
    }
    const bool due = pending_;
    if (due) {
        upload(texture_, buffers_[1], nullptr);
        filled_ = true;
    }
    pending_ = pixels != nullptr;
    if (pending_) {
        std::swap(buffers_[0], buffers_[1]);
    }
    return due;
}

void PixelTexture::copy(const void* pixels, uint8_t* rgba) const {
    if (layout_.isRgb) {
        WidenToRgba(static_cast<const uint8_t*>(pixels), size_ / kBytesPerPixel, rgba);
    } else {
        std::memcpy(rgba, pixels, size_);
    }
}

void PixelTexture::uploadTo(uint32_t texture, const void* pixels) {
    if (layout_.isRgb) {
        copy(pixels, widened_.data());
        pixels = widened_.data();
    }
    upload(texture, 0, pixels);
}

void PixelTexture::upload(uint32_t texture, uint32_t buffer, const void* pixels) const {
    SetTightRows();
    GLES3::glBindTexture(GL_TEXTURE_2D, texture);
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
    GLES3::glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, layout_.width, layout_.height, GL_RGBA,
                           GL_UNSIGNED_BYTE, pixels);
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
}
