// What the guarded renderer draws, against the model.

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "ext/ExtRenderer.h"
#include "gl/GLES3.h"
#include "support/GlRecorder.h"

namespace {

class ExtPicture : public testing::Test {
protected:
    TestContext context;
    Image frame = Noise({40, 24}, 1);
    Image mask = Noise({9, 7}, 3);
    Image sticker = Noise({3, 5}, 4);
    Scene scene;

    void SetUp() override {
        std::fill_n(mask.At(2, 1), 4 * 5, uint8_t{0});
        scene.source = &frame;
        scene.clear = {10, 20, 30, 40};
    }

    void addMaskAndStickers() {
        scene.mask = &mask;
        scene.sticker = &sticker;
        scene.stickers = {{20, 20}, {-1, -1}, {22, 18}, {60, 5}};
    }
};

TEST_F(ExtPicture, EachRotationAndMirrorWithMaskStickersAndAViewInBothDirections) {
    for (const int32_t source : {VE_SOURCE_TEXTURE_2D, VE_SOURCE_RGBA}) {
        VERendererOptions options = OptionsOf(source, 40, 24);
        options.outputWidth = 64;
        options.outputHeight = 48;
        ExtRenderer renderer(options);
        for (const bool decorated : {false, true}) {
            if (decorated) {
                addMaskAndStickers();
            }
            for (const int rotation : {0, 90, 180, 270}) {
                scene.rotation = rotation;
                scene.colorMirror = rotation % 180 == 0;
                scene.viewX = 0.13F;
                scene.viewY = -0.21F;
                scene.zoom = 1.1F;
                renderer.expectShows(scene);
                scene.colorMirror = !scene.colorMirror;
                scene.viewY = 0.4F;
                scene.zoom = 3.7F;
                renderer.expectShows(scene);
            }
        }
        scene = Scene{};
        scene.source = &frame;
    }
}

TEST_F(ExtPicture, TheSourceMatrixCropsAndTurnsThePictureOnly) {
    // A flip and a crop, as of a padded picture; the same turned.
    const float crop[16] = {0.75F, 0, 0, 0, 0, -0.8F, 0, 0, 0, 0, 1, 0, 0.1F, 0.9F, 0, 1};
    const float turned[16] = {0, 0.8F, 0, 0, 0.7F, 0, 0, 0, 0, 0, 1, 0, 0.2F, 0.1F, 0, 1};
    addMaskAndStickers();
    for (const int32_t source : {VE_SOURCE_TEXTURE_2D, VE_SOURCE_TEXTURE_EXTERNAL}) {
        ExtRenderer renderer(OptionsOf(source, 64, 48));
        for (const float* matrix : {crop, turned}) {
            for (const int rotation : {0, 270}) {
                scene.sourceMatrix = matrix;
                scene.rotation = rotation;
                scene.colorMirror = rotation != 0;
                renderer.expectShows(scene);
            }
        }
    }
}

TEST_F(ExtPicture, AFramebufferHasTheFirstRowOnTop) {
    addMaskAndStickers();
    scene.rotation = 90;
    scene.viewY = 0.3F;
    scene.zoom = 1.9F;
    VERendererOptions options = OptionsOf(VE_SOURCE_TEXTURE_2D, 64, 48);
    Fill(options.outputTexture, Noise({64, 48}, 5));
    const unsigned texture = std::exchange(options.outputTexture, 0);
    glGenFramebuffers(1, &options.outputFramebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, options.outputFramebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    options.toFramebuffer = true;
    ExtRenderer(options).show(scene);
    Image drawn = ReadBack(texture, {64, 48});
    for (int row = 0; row < 24; ++row) {
        std::swap_ranges(drawn.At(0, row), drawn.At(64, row), drawn.At(0, 47 - row));
    }
    ExpectShows(drawn, scene);
}

TEST_F(ExtPicture, HasTheVeryBytesOfTheSevenFunctions) {
    addMaskAndStickers();
    for (const int32_t source : {VE_SOURCE_RGB, VE_SOURCE_RGBA}) {
        RendererHarness plain({VE_OUTPUT_MASKED, source, 40, 24, VE_MASK_RGBA, 9, 7});
        VERendererOptions options = WithMask(OptionsOf(source, 40, 24), mask, VE_MASK_RGBA);
        const ExtRenderer guarded(options);
        for (const float zoom : {-1.0F, 0.9F, 2.0F, 3.3F}) {
            scene.zoom = zoom;
            scene.viewX = zoom / 10;
            scene.colorMirror = !scene.colorMirror;
            plain.show(scene);
            guarded.show(scene);
            EXPECT_EQ(plain.readBack().pixels, guarded.readBack().pixels) << "zoom " << zoom;
        }
    }
}

/// How many calls of \p name it takes to show the scene.
long CountCalls(const std::string& name, const ExtRenderer& renderer, const Scene& scene) {
    const GlRecorder recorder;
    renderer.show(scene);
    const std::vector<std::string> calls = GlRecorder::take();
    return std::count_if(calls.begin(), calls.end(),
                         [&](const std::string& call) { return call.rfind(name, 0) == 0; });
}

TEST_F(ExtPicture, WhatFitsPixelByPixelIsCopiedOrUploadedAndHasTheSameBytes) {
    const Image white = Solid({1, 1}, {255, 255, 255, 255});
    scene.zoom = VE_ZOOM_FIT;
    scene.sticker = &sticker;
    scene.stickers = {{20, 20}, {22, 18}};
    for (const int32_t format : {VE_FORMAT_RGB, VE_FORMAT_RGBA}) {
        RendererHarness seven({VE_OUTPUT_MASKED, VE_MODE_RGB, 40, 24, VE_MASK_RGBA, 1, 1}, format);
        VERendererOptions options = OptionsOf(VE_SOURCE_RGB, 40, 24);
        options.outputFormat = format;
        const ExtRenderer copying(options);
        options.outputTexture = NewTexture();
        options.drawOnce = true;
        const ExtRenderer uploading(options);
        const int copies = format == VE_FORMAT_RGB ? 1 : 0;
        for (const bool mirror : {false, true}) {
            scene.colorMirror = !mirror;
            scene.mask = &white;
            seven.show(scene);
            scene.mask = nullptr;
            EXPECT_EQ(mirror ? 0 : 1, CountCalls("glBlitFramebuffer", copying, scene));
            EXPECT_EQ(mirror ? 0 : copies, CountCalls("glBlitFramebuffer", uploading, scene));
            EXPECT_EQ(seven.readBack().pixels, copying.readBack().pixels) << mirror;
            EXPECT_EQ(seven.readBack().pixels, uploading.readBack().pixels) << mirror;
        }
    }
}

TEST_F(ExtPicture, AMaskWithLinearFiltersHasSoftEdges) {
    VERendererOptions options = OptionsOf(VE_SOURCE_RGBA, 40, 24);
    const ExtRenderer renderer(options);
    Image halves = Solid({2, 1}, {255, 255, 255, 0});
    halves.At(1, 0)[3] = 200;
    VEDrawOptions draw = VEMakeDrawOptions();
    draw.frame = frame.pixels.data();
    draw.maskTexture = NewTexture();
    Fill(draw.maskTexture, halves);
    glBindTexture(GL_TEXTURE_2D, draw.maskTexture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    renderer.draw(draw);
    const Image drawn = renderer.readBack();
    for (int x = 0; x < 40; ++x) {
        const double weight = std::clamp((x + 0.5) / 20 - 0.5, 0.0, 1.0);
        EXPECT_NEAR(drawn.At(x, 11)[3], 200 * weight, 2) << "column " << x;
        EXPECT_TRUE(std::equal(drawn.At(x, 11), drawn.At(x, 11) + 3, frame.At(x, 11)));
    }
}

TEST_F(ExtPicture, TheLastMaskStaysAndBeforeTheFirstThePictureIsWhole) {
    VERendererOptions options = WithMask(OptionsOf(VE_SOURCE_RGBA, 40, 24), mask, VE_MASK_RGBA);
    ExtRenderer renderer(options);
    scene.zoom = VE_ZOOM_FIT;
    renderer.drawFrame(&frame);
    ExpectShows(renderer.readBack(), scene);
    renderer.drawFrame(nullptr, &mask);
    renderer.drawFrame(&frame);
    scene.mask = &mask;
    ExpectShows(renderer.readBack(), scene);
    scene.mask = nullptr;
    renderer.expectShows(scene);  // Hides it.
    renderer.drawFrame(nullptr);
    scene.mask = &mask;
    ExpectShows(renderer.readBack(), scene);
}

TEST_F(ExtPicture, TheSevenFunctionsDrawItToo) {
    ExtRenderer renderer(WithMask(OptionsOf(VE_SOURCE_RGBA, 40, 24), mask, VE_MASK_RGBA));
    Fill(renderer.options.outputTexture, frame);
    VEStickerList stickers = {{20, 20}, {22, 18}};
    const unsigned texture = NewTexture();
    Fill(texture, sticker);
    EXPECT_EQ(0, VEUpdateUserPosition(renderer.handle, 0.2F, 5, 3, 0));
    EXPECT_EQ(0, VEUpdateRenderer(renderer.handle, frame.pixels.data(), 0, true, nullptr));
    EXPECT_EQ(0, VEUpdateRendererWithSticker(renderer.handle, nullptr, 0, false, nullptr,
                                             static_cast<int>(texture), stickers));
    EXPECT_EQ(0, VEUpdateCompressedData(renderer.handle, frame.pixels.data(), 8));
    glDeleteTextures(1, &texture);
    scene.clear = {0, 0, 0, 0};
    scene.viewX = 0.2F;
    scene.zoom = 3;
    scene.colorMirror = false;
    scene.sticker = &sticker;
    scene.stickers = stickers;
    ExpectShows(renderer.readBack(), scene);
}

}  // namespace
