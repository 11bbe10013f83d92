#include "render/GPUTextureFilter/VEGPUTexture2TextureFilter.h"

#include <android/log.h>

#include "render/VELog.h"

namespace {

constexpr char kSourceFile[] = "src/Render/GPUTextureFilter/VEGPUTexture2TextureFilter.cpp";

}  // namespace

GPUTexture2TextureFilter::~GPUTexture2TextureFilter() {
    DeleteTexture(m_maskTexture);
}

void GPUTexture2TextureFilter::Texture2FilterTexture(uint32_t source, bool mirror,
                                                     bool sourceIsExternal, int32_t stickerTexture,
                                                     const VEStickerList& stickers) {
    draw(source, kNone, mirror, sourceIsExternal, stickerTexture, stickers);
}

void GPUTexture2TextureFilter::Texture2ExtractFilterTexture(uint32_t source, bool mirror,
                                                            const void* maskPixels,
                                                            bool sourceIsExternal,
                                                            int32_t stickerTexture,
                                                            const VEStickerList& stickers) {
    if (m_maskTexture == nullptr) {
        createMaskTexture();
        return;
    }
    m_maskTexture->loadData(maskPixels);
    draw(source, m_maskTexture->m_textureId, mirror, sourceIsExternal, stickerTexture, stickers);
}

void GPUTexture2TextureFilter::UpdateUserPosition(float a, float b, float c, float d) {
    updateMatrixState(a, b, c, d);
}

void GPUTexture2TextureFilter::createMaskTexture() {
    m_maskTexture = GeneratorTexture(m_maskFormat, m_maskWidth, m_maskHeight, true);
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                   "GeneratorMaskTexture, m_maskWidth(%d), m_maskHeight(%d) ...###renderer",
                   static_cast<int>(m_maskWidth), static_cast<int>(m_maskHeight));
}
