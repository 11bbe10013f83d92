#pragma once

#include "render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.h"

/// A texture filter whose frames and masks come from CPU memory. Not exported.
///
/// Pixels are rows of the whole texture without padding, first row first. They are read only during
/// the call. Null completes the pending upload and starts none. Each call draws the frame of the
/// call before.
///
/// \thread the GL thread.
class GPUData2TextureFilter : public GPUTextureFilterBaseImpl {
public:
    using GPUTextureFilterBaseImpl::GPUTextureFilterBaseImpl;
    ~GPUData2TextureFilter();

    /// The first call of a new filter only creates the source texture. It does not use its pixels
    /// and draws nothing.
    void Draw2FilterTexture(const void* pixels, bool mirror, int32_t stickerTexture,
                            const VEStickerList& stickers);

    /// Like Draw2FilterTexture, with a mask. The first call of a new filter only creates the source
    /// texture, the second only the mask texture.
    void Draw2ExtractFilterTexture(const void* pixels, bool mirror, const void* maskPixels,
                                   int32_t stickerTexture, const VEStickerList& stickers);

    void UpdateUserPosition(float a, float b, float c, float d);

private:
    void createSourceTexture();
    void createMaskTexture();

    GLTexture* m_sourceTexture = nullptr;
    GLTexture* m_maskTexture = nullptr;
};
