// Stickers: where the placement arithmetic puts them, in which order, and which are left out.

#include <gtest/gtest.h>

#include <climits>

#include "support/RendererHarness.h"

namespace {

const VERendererMode kPlain = {VE_OUTPUT_PICTURE, VE_MODE_RGBA, 200, 120, 0, 0, 0};

class Sticker : public testing::Test {
protected:
    Sticker() {
        scene.source = &frame;
        scene.sticker = &sticker;
    }

    TestContext context;
    Image frame = Noise({200, 120}, 1);
    Image sticker = Noise({3, 2}, 2);
    Scene scene;
};

TEST_F(Sticker, StandOffTheirAnchorsAndFollowTheMirror) {
    RendererHarness renderer(kPlain);
    // In the middle, at odd places, cut by the edges, and outside the picture.
    scene.stickers = {{100, 60}, {37, 91}, {0, 0}, {199, 119}, {100, 160}, {-50, 60}, {4000, -9}};
    renderer.expectShows(scene);
    scene.colorMirror = false;
    renderer.expectShows(scene);
}

TEST_F(Sticker, LaterOnesLieOverEarlierOnesAndTheirAlphaIsWritten) {
    RendererHarness renderer(kPlain);
    sticker = Noise({3, 2}, 9);
    *(sticker.At(1, 1) + 3) = 0;
    scene.stickers = {{100, 60}, {104, 65}, {97, 70}};
    renderer.expectShows(scene);
    scene.stickers = {{97, 70}, {104, 65}, {100, 60}};
    renderer.expectShows(scene);
}

TEST_F(Sticker, TheHiddenPairSkipsItsStickerOnly) {
    RendererHarness renderer(kPlain);
    scene.stickers = {{50, 60}, {-1, -1}, {150, 60}};
    renderer.expectShows(scene);
    scene.stickers = {{-1, -1}};
    renderer.expectShows(scene);
}

TEST_F(Sticker, TheViewMovesThemWithThePicture) {
    const VERendererMode masked = {VE_OUTPUT_MASKED, VE_MODE_RGBA, 200, 120, VE_MASK_RGBA, 2, 2};
    const Image mask = Solid({2, 2}, {255, 255, 255, 255});
    RendererHarness renderer(masked);
    scene.mask = &mask;
    // From far away, half of the hidden pair is a place in sight.
    scene.stickers = {{80, 60}, {120, 90}, {-1, 60}, {60, -1}};
    for (const float zoom : {-4.0F, 0.0F, 4.0F, 8.0F}) {
        SCOPED_TRACE(zoom);
        scene.zoom = zoom;
        scene.viewX = 0.1F;
        renderer.expectShows(scene);
    }
}

TEST_F(Sticker, OddSizesHalveRoundedDown) {
    frame = Noise({201, 121}, 1);
    RendererHarness renderer({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 201, 121, 0, 0, 0});
    scene.stickers = {{100, 60}, {200, 120}};
    renderer.expectShows(scene);
}

TEST_F(Sticker, PositionsAtTheEndsOfTheirRangeAndTargetsWithoutAHalfAreHarmless) {
    RendererHarness renderer(kPlain);
    scene.stickers = {{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MIN, 60}};
    renderer.show(scene);

    const Image pixel = Solid({1, 1}, {1, 2, 3, 4});
    RendererHarness tiny({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 1, 1, 0, 0, 0});
    scene.source = &pixel;
    scene.stickers = {{0, 0}, {5, 5}};
    tiny.show(scene);
    EXPECT_EQ(tiny.readBack().Pixel(0, 0), (Rgba{1, 2, 3, 4}));
}

}  // namespace
