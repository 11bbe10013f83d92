#pragma once

#include "render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.h"

/// A texture filter whose source is a GL texture. Only the mask comes from CPU memory, in the form
/// that GPUData2TextureFilter takes. Not exported.
///
/// \thread the GL thread.
class GPUTexture2TextureFilter : public GPUTextureFilterBaseImpl {
public:
    using GPUTextureFilterBaseImpl::GPUTextureFilterBaseImpl;
    ~GPUTexture2TextureFilter();

    /// \param sourceIsExternal \p source is a GL_TEXTURE_EXTERNAL_OES, not a GL_TEXTURE_2D.
    void Texture2FilterTexture(uint32_t source, bool mirror, bool sourceIsExternal,
                               int32_t stickerTexture, const VEStickerList& stickers);

    /// Like Texture2FilterTexture, with a mask. The first call of a new filter only creates the
    /// mask texture.
    void Texture2ExtractFilterTexture(uint32_t source, bool mirror, const void* maskPixels,
                                      bool sourceIsExternal, int32_t stickerTexture,
                                      const VEStickerList& stickers);

    void UpdateUserPosition(float a, float b, float c, float d);

private:
    void createMaskTexture();

    GLTexture* m_maskTexture = nullptr;
};
