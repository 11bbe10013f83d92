// Pixels of plain and masked pictures against the CPU model. Sampling is nearest, so they are
// exact.

#include <gtest/gtest.h>

#include "gl/GLES3.h"
#include "support/RendererHarness.h"

namespace {

VERendererMode Plain(int modeType, int width, int height) {
    return {VE_OUTPUT_PICTURE, modeType, width, height, 0, 0, 0};
}

VERendererMode Masked(int width, int height, int maskFormat, int maskWidth, int maskHeight) {
    return {VE_OUTPUT_MASKED, VE_MODE_RGBA, width, height, maskFormat, maskWidth, maskHeight};
}

TEST(Picture, ShowsRgbAndRgbaFramesOfAnySize) {
    TestContext context;
    // Among them RGB rows that are no multiple of four bytes, single rows and single pixels.
    static constexpr int kSizes[][2] = {{64, 48}, {61, 37}, {5, 3}, {33, 1}, {1, 17}, {1, 1}};
    for (const auto& [width, height] : kSizes) {
        for (const int modeType : {VE_MODE_RGB, VE_MODE_RGBA}) {
            SCOPED_TRACE(testing::Message() << width << "x" << height << " type " << modeType);
            const Image noise = Noise({width, height}, 5);
            const Image frame = modeType == VE_MODE_RGB ? Opaque(noise) : noise;
            RendererHarness renderer(Plain(modeType, width, height));
            Scene scene;
            scene.source = &frame;
            renderer.expectShows(scene);
            scene.colorMirror = false;
            renderer.expectShows(scene);
        }
    }
}

TEST(Picture, OnlyADestinationOfFormat3HasNoAlpha) {
    TestContext context;
    const Image frame = Solid({8, 8}, {10, 20, 30, 40});
    for (const int format : {0, 3, 4, 5}) {
        RendererHarness renderer(Plain(VE_MODE_RGBA, 8, 8), format);
        Scene scene;
        scene.source = &frame;
        renderer.show(scene);
        const uint8_t alpha = format == 3 ? 255 : 40;
        EXPECT_EQ(renderer.readBack().Pixel(3, 3), (Rgba{10, 20, 30, alpha})) << format;
    }
}

TEST(Picture, TheViewIsFixedWithoutAMask) {
    TestContext context;
    const Image frame = Noise({40, 30}, 1);
    RendererHarness renderer(Plain(VE_MODE_RGBA, 40, 30));
    Scene scene;
    scene.source = &frame;
    renderer.show(scene);
    const Image before = renderer.readBack();
    scene.zoom = 0.0F;
    scene.viewX = 0.5F;
    renderer.show(scene);
    EXPECT_EQ(renderer.readBack().pixels, before.pixels);
}

TEST(Picture, TheViewZoomsMovesTurnsRoundAndIsEmptyNearZoomSix) {
    TestContext context;
    const Image frame = Noise({64, 48}, 3);
    const Image mask = Solid({4, 4}, {255, 255, 255, 200});
    RendererHarness renderer(Masked(64, 48, VE_MASK_RGBA, 4, 4));
    Scene scene;
    scene.source = &frame;
    scene.mask = &mask;
    scene.clear = {30, 60, 90, 120};
    // From far away, at the start, close, and from behind; straight on and moved to either side.
    for (const float zoom : {-4.0F, 0.0F, 1.4F, 2.0F, 4.0F, 5.5F, 5.79F, 6.21F, 8.0F, 12.0F}) {
        for (const float x : {0.0F, 0.3F, -1.2F}) {
            for (const bool colorMirror : {true, false}) {
                SCOPED_TRACE(testing::Message() << "zoom " << zoom << " x " << x);
                scene.zoom = zoom;
                scene.viewX = x;
                scene.colorMirror = colorMirror;
                renderer.expectShows(scene);
            }
        }
    }
    for (const float zoom : {5.81F, 6.0F, 6.19F}) {
        scene.zoom = zoom;
        renderer.show(scene);
        EXPECT_EQ(renderer.readBack().pixels, Solid({64, 48}, scene.clear).pixels) << zoom;
    }
    scene.zoom = 2.0F;
    renderer.expectShows(scene);
}

/// Four columns: black with alpha, nearly black without alpha, color half opaque, black opaque.
Image KeyColumns() {
    static constexpr Rgba kColumns[] = {
        {0, 0, 0, 77}, {0, 0, 1, 0}, {200, 100, 50, 128}, {0, 0, 0, 255}};
    Image mask({4, 3});
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 4; ++x) {
            std::copy_n(kColumns[x].begin(), 4, mask.At(x, y));
        }
    }
    *mask.At(0, 0) = 9;  // Not black, so that a mask upside down or swapped is noticed.
    return mask;
}

TEST(Picture, TheMaskKeysThePictureAndIsNeverMirrored) {
    TestContext context;
    const Image frame = Noise({50, 40}, 11);
    for (const int maskFormat : {5, 3, 0, 4}) {
        const Image mask = maskFormat == 5 ? KeyColumns() : Opaque(KeyColumns());
        RendererHarness renderer(Masked(50, 40, maskFormat, 4, 3));
        Scene scene;
        scene.source = &frame;
        scene.mask = &mask;
        renderer.expectShows(scene);
        scene.colorMirror = false;
        renderer.expectShows(scene);
        EXPECT_EQ(renderer.readBack().Pixel(48, 20), (Rgba{169, 210, 216, 0}));
    }
}

}  // namespace
