// When the guarded renderer draws which frame.

#include <gtest/gtest.h>

#include "ext/ExtRenderer.h"

namespace {

class ExtLatency : public testing::Test {
protected:
    TestContext context;
    Image frames[3] = {Noise({6, 4}, 1), Noise({6, 4}, 2), Noise({6, 4}, 3)};
    Image maskA = Solid({1, 1}, {1, 1, 1, 50});
    Image maskB = Solid({1, 1}, {1, 1, 1, 60});

    VERendererOptions options = WithMask(OptionsOf(VE_SOURCE_RGBA, 6, 4), maskA, VE_MASK_RGBA);

    static void Expect(const VEDrawn& drawn, bool picture, bool newPicture) {
        EXPECT_EQ(picture, drawn.picture);
        EXPECT_EQ(newPicture, drawn.newPicture);
        EXPECT_EQ(VE_NO_TIME, drawn.ptsUs);
    }

    static Rgba WithAlpha(Rgba color, uint8_t alpha) {
        color[3] = alpha;
        return color;
    }
};

TEST_F(ExtLatency, OrOneCallLaterAndNoneIsLost) {
    options.drawLater = true;
    ExtRenderer renderer(options);
    Image before = Noise({6, 4}, 9);
    Fill(renderer.options.outputTexture, before);
    Expect(renderer.drawFrame(nullptr), false, false);
    Expect(renderer.drawFrame(&frames[0], &maskA), false, false);
    EXPECT_EQ(before.pixels, renderer.readBack().pixels);
    Expect(renderer.drawFrame(&frames[1], &maskB), true, true);
    EXPECT_EQ(WithAlpha(frames[0].Pixel(2, 3), 50), renderer.readBack().Pixel(2, 3));
    Expect(renderer.drawFrame(&frames[2]), true, true);
    EXPECT_EQ(WithAlpha(frames[1].Pixel(2, 3), 60), renderer.readBack().Pixel(2, 3));
    Expect(renderer.drawFrame(nullptr), true, true);
    EXPECT_EQ(WithAlpha(frames[2].Pixel(2, 3), 60), renderer.readBack().Pixel(2, 3));
    Expect(renderer.drawFrame(nullptr), true, false);
}

TEST_F(ExtLatency, FramesAndMasksAreDrawnAtOnce) {
    ExtRenderer renderer(options);
    Expect(renderer.drawFrame(&frames[0], &maskA), true, true);
    EXPECT_EQ(WithAlpha(frames[0].Pixel(2, 3), 50), renderer.readBack().Pixel(2, 3));
    Expect(renderer.drawFrame(nullptr), true, false);
}

TEST_F(ExtLatency, AFrameThatIsDrawnOnceIsNotDrawnAgain) {
    options.drawOnce = true;
    ExtRenderer renderer(options);
    Expect(renderer.drawFrame(nullptr), false, false);
    for (const Image* mask : {static_cast<Image*>(nullptr), &maskA}) {  // Uploaded, drawn.
        Expect(renderer.drawFrame(&frames[0], mask), true, true);
        const Image shown = renderer.readBack();
        const Rgba color = frames[0].Pixel(2, 3);
        EXPECT_EQ(mask != nullptr ? WithAlpha(color, 50) : color, shown.Pixel(2, 3));
        Expect(renderer.drawFrame(nullptr, &maskB), false, false);
        EXPECT_EQ(shown.pixels, renderer.readBack().pixels);
    }
}

}  // namespace
