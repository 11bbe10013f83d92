#include "render/GPUTextureFilter/VEGPUData2TextureFilter.h"

#include <android/log.h>

#include "render/VELog.h"

namespace {

constexpr char kSourceFile[] = "src/Render/GPUTextureFilter/VEGPUData2TextureFilter.cpp";

}  // namespace

GPUData2TextureFilter::~GPUData2TextureFilter() {
    DeleteTexture(m_sourceTexture);
    DeleteTexture(m_maskTexture);
}

void GPUData2TextureFilter::Draw2FilterTexture(const void* pixels, bool mirror,
                                               int32_t stickerTexture,
                                               const VEStickerList& stickers) {
    if (m_sourceTexture == nullptr) {  // Frozen: first calls
        createSourceTexture();
        return;
    }
    m_sourceTexture->loadData(pixels);
    draw(m_sourceTexture->m_textureId, kNone, mirror, false, stickerTexture, stickers);
}

void GPUData2TextureFilter::Draw2ExtractFilterTexture(const void* pixels, bool mirror,
                                                      const void* maskPixels,
                                                      int32_t stickerTexture,
                                                      const VEStickerList& stickers) {
    if (m_sourceTexture == nullptr) {
        createSourceTexture();
        return;
    }
    if (m_maskTexture == nullptr) {
        createMaskTexture();
        return;
    }
    m_sourceTexture->loadData(pixels);
    m_maskTexture->loadData(maskPixels);
    draw(m_sourceTexture->m_textureId, m_maskTexture->m_textureId, mirror, false, stickerTexture,
         stickers);
}

void GPUData2TextureFilter::UpdateUserPosition(float a, float b, float c, float d) {
    updateMatrixState(a, b, c, d);
}

void GPUData2TextureFilter::createSourceTexture() {
    m_sourceTexture = GeneratorTexture(m_sourceFormat, m_sourceWidth, m_sourceHeight, true);
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                   "GeneratorSourceTexture, m_sourceWidth(%d), m_sourceHeight(%d) ...###renderer",
                   static_cast<int>(m_sourceWidth), static_cast<int>(m_sourceHeight));
}

void GPUData2TextureFilter::createMaskTexture() {
    m_maskTexture = GeneratorTexture(m_maskFormat, m_maskWidth, m_maskHeight, true);
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                   "GeneratorMaskTexture, m_maskWidth(%d), m_maskHeight(%d) ...###renderer",
                   static_cast<int>(m_maskWidth), static_cast<int>(m_maskHeight));
}
