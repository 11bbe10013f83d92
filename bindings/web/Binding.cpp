// What the package's JavaScript calls: VERendererExt.h without structs.

#include <emscripten/emscripten.h>

#include "render/VERendererExt.h"

extern "C" {

/// \param outputTexture 0 draws onto the canvas.
/// \param[out] result what VECreateRenderer returned.
/// \return null on failure.
EMSCRIPTEN_KEEPALIVE VERenderer* VornCreate(uint32_t outputTexture, int32_t width, int32_t height,
                                            VEResult* result) {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = VE_SOURCE_TEXTURE_2D;
    options.outputTexture = outputTexture;
    options.toFramebuffer = outputTexture == 0;
    options.outputWidth = width;
    options.outputHeight = height;
    VERenderer* renderer = nullptr;
    *result = VECreateRenderer(&options, &renderer);
    return renderer;
}

/// \param maskTexture 0 draws without a mask.
EMSCRIPTEN_KEEPALIVE VEResult VornDraw(VERenderer* renderer, uint32_t sourceTexture,
                                       uint32_t maskTexture, bool mirror, int32_t rotation,
                                       const VEView* view, uint32_t stickerTexture,
                                       const int32_t* stickers, size_t stickerCount) {
    VEDrawOptions options = VEMakeDrawOptions();
    options.sourceTexture = sourceTexture;
    options.maskTexture = maskTexture;
    options.hideMask = maskTexture == 0;
    options.mirror = mirror;
    options.rotation = rotation;
    options.view = view;
    options.stickerTexture = stickerTexture;
    options.stickers = stickers;
    options.stickerCount = stickerCount;
    return VEDraw(renderer, &options, nullptr);
}

EMSCRIPTEN_KEEPALIVE void VornClose(VERenderer* renderer, bool contextLost) {
    VECloseRenderer(renderer, contextLost ? VE_CONTEXT_LOST : VE_CONTEXT_CURRENT);
}

EMSCRIPTEN_KEEPALIVE const char* VornResultText(VEResult result) {
    return VEResultText(result);
}

}  // extern "C"
