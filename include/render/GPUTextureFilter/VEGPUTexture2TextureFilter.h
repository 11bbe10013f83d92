#pragma once

#include "render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.h"

/// A texture filter whose picture is a GL texture already; only the mask arrives as CPU pixels, as
/// GPUData2TextureFilter takes them. Not exported.
///
/// \thread the GL thread.
class GPUTexture2TextureFilter : public GPUTextureFilterBaseImpl {
public:
    using GPUTextureFilterBaseImpl::GPUTextureFilterBaseImpl;
    ~GPUTexture2TextureFilter();

    /// \param sourceIsExternal \p source is a GL_TEXTURE_EXTERNAL_OES instead of a GL_TEXTURE_2D.
    void Texture2FilterTexture(uint32_t source, bool mirror, bool sourceIsExternal,
                               int32_t stickerTexture, const VEStickerList& stickers);

    /// As Texture2FilterTexture, keyed by a mask. The first call of a fresh filter only creates the
    /// mask texture.
    void Texture2ExtractFilterTexture(uint32_t source, bool mirror, const void* maskPixels,
                                      bool sourceIsExternal, int32_t stickerTexture,
                                      const VEStickerList& stickers);

    void UpdateUserPosition(float a, float b, float c, float d);

private:
    void createMaskTexture();

    GLTexture* m_maskTexture = nullptr;
};
