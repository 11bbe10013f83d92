#pragma once

#include "render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.h"

/// A texture filter whose picture and mask arrive as CPU pixels. Not exported.
///
/// Pixels are tight rows, first row first, of the whole texture; they are read during the call
/// only. Null completes the pending upload and queues nothing. What is drawn is the previous call's
/// frame.
///
/// \thread the GL thread.
class GPUData2TextureFilter : public GPUTextureFilterBaseImpl {
public:
    using GPUTextureFilterBaseImpl::GPUTextureFilterBaseImpl;
    ~GPUData2TextureFilter();

    /// The first call of a fresh filter only creates the source texture: its pixels are not used
    /// and nothing is drawn.
    void Draw2FilterTexture(const void* pixels, bool mirror, int32_t stickerTexture,
                            const VEStickerList& stickers);

    /// As Draw2FilterTexture, keyed by a mask. The first two calls of a fresh filter only create
    /// the source texture and the mask texture, in this order.
    void Draw2ExtractFilterTexture(const void* pixels, bool mirror, const void* maskPixels,
                                   int32_t stickerTexture, const VEStickerList& stickers);

    void UpdateUserPosition(float a, float b, float c, float d);

private:
    void createSourceTexture();
    void createMaskTexture();

    GLTexture* m_sourceTexture = nullptr;
    GLTexture* m_maskTexture = nullptr;
};
