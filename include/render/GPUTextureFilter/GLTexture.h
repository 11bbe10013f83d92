#pragma once

#include <cstdint>

/// A GL texture fed from CPU pixels, with GL_NEAREST filters and clamped edges. Not exported.
///
/// Rows are tight (width × 3 or 4 bytes) and the caller's unpack alignment applies.
///
/// With pixel buffers, what loadData is given reaches the texture only at the next loadData: one
/// frame of latency in exchange for a copy that does not stall the GL thread.
///
/// \thread the GL thread.
struct GLTexture {
    /// \param format  GL_RGB or GL_RGBA, as internal and data format; others have no bytes.
    /// \param texture name of a texture that GPUTextureFilterBase::DeleteTexture will delete.
    /// Leaves texture 0 bound to GL_TEXTURE_2D on the active unit (with pixel buffers; without, the
    /// texture stays bound) and no pixel-unpack buffer.
    GLTexture(uint32_t format, uint32_t texture, uint32_t width, uint32_t height, bool usePbo);
    GLTexture(const GLTexture&) = delete;
    GLTexture& operator=(const GLTexture&) = delete;

    /// \param data a whole frame, read during the call; null, with pixel buffers, to only move the
    ///             pending frame into the texture. The pixel-unpack binding then stays on that
    ///             frame's buffer; in all other cases it ends at 0.
    void loadData(const void* data);

    uint32_t m_format;
    /// First contents of the texture, uninitialised: what is seen until a frame has arrived.
    unsigned char* m_pixels = nullptr;
    uint32_t m_byteSize = 0;
    uint32_t m_textureId;
    uint32_t m_width;
    uint32_t m_height;
    uint32_t m_pbo[2] = {0, 0};
    int32_t m_pendingPbo = -1;  ///< Index of the buffer not yet in the texture, or -1.
    int32_t m_nextPbo = 0;      ///< Index of the buffer that takes the next frame.
    bool m_usePbo;

private:
    void createPixelBuffers();
    void finishPending();
    void queue(const void* data);
};
