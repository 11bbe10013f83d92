#include "VEGLES3Renderer.h"

#include <android/log.h>

#include "gl/GLES3.h"
#include "render/GPUTextureFilter/VEGPUData2TextureFilter.h"
#include "render/VELog.h"

namespace {

constexpr char kSourceFile[] = "src/Render/GLES3Renderer/VEGLES3Renderer.cpp";

uint32_t SourceFormat(const VERendererMode& mode) {
    return mode.modeType == VE_MODE_RGBA ? GL_RGBA : GL_RGB;
}

}  // namespace

VEGLES3Renderer::VEGLES3Renderer(int textureId, int format, VERendererMode* mode)
    : VERendererBase(textureId, format, mode),
      filter(new GPUData2TextureFilter(
          static_cast<uint32_t>(textureId), TargetFormat(format), SourceFormat(*mode),
          static_cast<uint32_t>(mode->textureWidth), static_cast<uint32_t>(mode->textureHeight),
          MaskFormat(*mode), static_cast<uint32_t>(mode->maskWidth),
          static_cast<uint32_t>(mode->maskHeight))) {
    // Frozen: log texts
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                   "\n VEGLES3Renderer textureId(%d), textureWidth (%d), textureHieght(%d),"
                   "extractWidth(%d), extractHeight(%d) .. ######renderer\n",
                   textureId, textureWidth, textureHeight, mode->maskWidth, mode->maskHeight);
}

int VEGLES3Renderer::Update(void* data, unsigned int /*size*/, bool colorMirror, void* maskData,
                            int stickerTexture, VEStickerList& stickers) {
    if (outputMode == VE_OUTPUT_PICTURE) {
        filter->Draw2FilterTexture(data, colorMirror, stickerTexture, stickers);
    } else if (outputMode == VE_OUTPUT_MASKED) {
        filter->Draw2ExtractFilterTexture(data, colorMirror, maskData, stickerTexture, stickers);
    }
    return 0;
}

void VEGLES3Renderer::Destroy() {
    if (filter == nullptr) {
        return;
    }
    delete filter;
    filter = nullptr;
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile, "\n VEGLES3Renderer Destroy.. ######renderer\n");
}

int VEGLES3Renderer::UpdateCompressedData(void* /*data*/, int /*size*/) {
    return 0;
}

int VEGLES3Renderer::UpdateUserPosition(float a, float b, float c, float d) {
    if (outputMode == VE_OUTPUT_MASKED) {  // Frozen: view without mask
        filter->UpdateUserPosition(a, b, c, d);
    }
    return 0;
}
