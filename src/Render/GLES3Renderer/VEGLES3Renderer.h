#pragma once

#include "../VERendererBase.h"

class GPUData2TextureFilter;

/// The renderer of raw RGB or RGBA frames.
class VEGLES3Renderer : public VERendererBase {
public:
    VEGLES3Renderer(int textureId, int format, VERendererMode* mode);

    int Update(void* data, unsigned int size, bool colorMirror, void* maskData, int stickerTexture,
               VEStickerList& stickers) override;
    void Destroy() override;
    int UpdateCompressedData(void* data, int size) override;
    int UpdateUserPosition(float a, float b, float c, float d) override;

private:
    GPUData2TextureFilter* filter;  ///< Owned. Null after Destroy.
};
