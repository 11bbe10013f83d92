#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "GLNames.h"

/// How pixels in memory look: tight rows, first row first.
struct PixelLayout {
    bool isRgb;  ///< 3 bytes a pixel, else 4.
    int32_t width;
    int32_t height;

    /// Throws Failure when no block of memory can hold so many.
    size_t pixels() const;
};

/// An RGBA texture that is filled from memory in two steps: stage may fail, and changes nothing
/// then; commit does not fail. Filtered by GL_NEAREST, edges clamped.
///
/// RGB pixels are widened to RGBA on the way, as GL and GPUs store them that way: it is faster here
/// than in the driver.
///
/// Delayed, the pixels wait in a pixel buffer until the next commit, so that the copy to the
/// texture does not stall. Otherwise they arrive at once.
///
/// \thread the GL thread. Both steps leave GL_PIXEL_UNPACK_BUFFER at 0 and change the unpack state.
class PixelTexture {
public:
    /// Makes the texture; contents undefined. Changes the binding of GL_TEXTURE_2D, and
    /// GL_PIXEL_UNPACK_BUFFER to 0. Throws Failure.
    PixelTexture(GLNames& names, const PixelLayout& layout, bool delayed);

    /// Prepares \p pixels for the commit that follows. Throws Failure without memory.
    void stage(const void* pixels);

    /// Brings to the texture what is due: \p pixels, or those of the commit before.
    ///
    /// \param pixels as staged; null for none.
    /// \return whether the texture has new contents. It is bound to GL_TEXTURE_2D then.
    bool commit(const void* pixels);

    /// Brings \p pixels to another texture of this size, at once.
    void uploadTo(uint32_t texture, const void* pixels);

    uint32_t name() const { return texture_; }
    /// Whether there are contents yet.
    bool filled() const { return filled_; }

private:
    void makeBuffers(GLNames& names);
    void copy(const void* pixels, uint8_t* rgba) const;
    void upload(uint32_t texture, uint32_t buffer, const void* pixels) const;

    PixelLayout layout_;
    size_t size_;  ///< Of the RGBA pixels, in bytes.
    uint32_t texture_;
    bool delayed_;
    bool filled_ = false;
    bool pending_ = false;
    uint32_t buffers_[2] = {};  ///< The one staged next, and the pending one.
    std::vector<uint8_t> widened_;
};
