#include "ext/ExtRenderer.h"

#include <gtest/gtest.h>

#include "gl/GLES3.h"

VERendererOptions OptionsOf(int32_t source, int width, int height) {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = source;
    options.sourceWidth = options.outputWidth = width;
    options.sourceHeight = options.outputHeight = height;
    options.outputTexture = NewTexture();
    return options;
}

VERendererOptions WithMask(VERendererOptions options, const Image& mask, int32_t format) {
    options.maskFormat = format;
    options.maskWidth = mask.size.width;
    options.maskHeight = mask.size.height;
    return options;
}

ExtRenderer::ExtRenderer(const VERendererOptions& options) : options(options) {
    const VEResult result = VECreateRenderer(&this->options, &handle);
    EXPECT_EQ(VE_OK, result) << VEResultText(result);
}

ExtRenderer::~ExtRenderer() {
    EXPECT_EQ(VE_OK, VECloseRenderer(handle, VE_CONTEXT_CURRENT));
    for (const unsigned texture : {sticker_, source_, mask_, options.outputTexture}) {
        glDeleteTextures(1, &texture);
    }
}

VEDrawn ExtRenderer::draw(const VEDrawOptions& drawOptions) const {
    VEDrawn drawn = VEMakeDrawn();
    EXPECT_EQ(VE_OK, VEDraw(handle, &drawOptions, &drawn));
    return drawn;
}

VEDrawn ExtRenderer::drawFrame(const Image* frame, const Image* mask) const {
    VEDrawOptions drawOptions = VEMakeDrawOptions();
    const std::vector<uint8_t> frameBytes = Packed(frame, options.source == VE_SOURCE_RGB);
    const std::vector<uint8_t> maskBytes = Packed(mask, options.maskFormat == VE_MASK_RGB);
    drawOptions.frame = frame != nullptr ? frameBytes.data() : nullptr;
    drawOptions.mask = mask != nullptr ? maskBytes.data() : nullptr;
    return draw(drawOptions);
}

void ExtRenderer::show(const Scene& scene) const {
    VEDrawOptions drawOptions = VEMakeDrawOptions();
    const std::vector<uint8_t> frame = Packed(scene.source, options.source == VE_SOURCE_RGB);
    const std::vector<uint8_t> mask = Packed(scene.mask, options.maskFormat == VE_MASK_RGB);
    drawOptions.sourceMatrix = scene.sourceMatrix;
    if (options.source == VE_SOURCE_TEXTURE_2D) {
        Fill(source_, *scene.source);
        drawOptions.sourceTexture = source_;
    } else if (options.source == VE_SOURCE_TEXTURE_EXTERNAL) {
        drawOptions.sourceTexture = NewExternalTexture(*scene.source);
    } else {
        drawOptions.frame = frame.data();
    }
    if (scene.mask != nullptr && options.maskFormat != 0) {
        drawOptions.mask = mask.data();
    } else if (scene.mask != nullptr) {
        Fill(mask_, *scene.mask);
        drawOptions.maskTexture = mask_;
    }
    drawOptions.hideMask = scene.mask == nullptr;
    drawOptions.mirror = !scene.colorMirror;
    drawOptions.rotation = scene.rotation;
    const VEView view = {scene.viewX, scene.viewY, scene.zoom};
    drawOptions.view = &view;
    std::vector<int32_t> pairs;
    if (scene.sticker != nullptr) {
        Fill(sticker_, *scene.sticker);
        drawOptions.stickerTexture = sticker_;
        for (const auto& [x, y] : scene.stickers) {
            pairs.insert(pairs.end(), {x, y});
        }
    }
    drawOptions.stickers = pairs.data();
    drawOptions.stickerCount = pairs.size() / 2;
    SetClearColor(scene.clear);
    EXPECT_TRUE(draw(drawOptions).picture);
}

void ExtRenderer::expectShows(const Scene& scene) const {
    show(scene);
    ExpectShows(readBack(), scene);
}
