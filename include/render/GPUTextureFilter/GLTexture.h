#pragma once

#include <cstdint>

/// A GL texture whose pixels come from CPU memory. It has GL_NEAREST filters and clamped edges. Not
/// exported.
///
/// Rows have no padding (width × 3 or 4 bytes). GL uses the caller's unpack alignment.
///
/// With pixel buffers, a frame given to loadData reaches the texture at the next loadData. That is
/// one frame of latency, and in return the GL thread does not wait for the copy.
///
/// \thread the GL thread.
struct GLTexture {
    /// \param format  GL_RGB or GL_RGBA: internal format and data format. Other formats have 0
    /// bytes. \param texture name of a texture, which GPUTextureFilterBase::DeleteTexture deletes.
    ///
    /// Then no pixel-unpack buffer is bound. On the active unit, GL_TEXTURE_2D is 0 with pixel
    /// buffers, and the new texture without.
    GLTexture(uint32_t format, uint32_t texture, uint32_t width, uint32_t height, bool usePbo);
    GLTexture(const GLTexture&) = delete;
    GLTexture& operator=(const GLTexture&) = delete;

    /// \param data a whole frame, which is read during the call. With pixel buffers it may be null:
    ///             then only the pending frame goes into the texture, and its pixel-unpack buffer
    ///             stays bound. In all other cases that binding is 0 afterwards.
    void loadData(const void* data);

    uint32_t m_format;
    /// The first contents of the texture, uninitialized. They show until a frame has arrived.
    unsigned char* m_pixels = nullptr;
    uint32_t m_byteSize = 0;
    uint32_t m_textureId;
    uint32_t m_width;
    uint32_t m_height;
    uint32_t m_pbo[2] = {0, 0};
    int32_t m_pendingPbo = -1;  ///< Index of the buffer whose frame is not in the texture, or -1.
    int32_t m_nextPbo = 0;      ///< Index of the buffer for the next frame.
    bool m_usePbo;

private:
    void createPixelBuffers();
    void finishPending();
    void queue(const void* data);
};
