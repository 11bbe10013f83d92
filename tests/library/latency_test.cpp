// What is drawn at which call: uploads arrive one call late, and the first calls only create
// textures.

#include <gtest/gtest.h>

#include "gl/GLES3.h"
#include "support/RendererHarness.h"
#include "support/Replaced.h"

namespace {

Image Frame(int number) {
    return Solid({4, 4}, {static_cast<uint8_t>(number), 100, 200, 255});
}

class Latency : public testing::Test {
protected:
    /// One call with the numbered frame and mask; 0 passes null.
    static void call(RendererHarness& renderer, int frame, int mask = 0) {
        Image frameImage = Frame(frame);
        Image maskImage = Solid({2, 2}, {255, 255, 255, static_cast<uint8_t>(mask)});
        EXPECT_EQ(VEUpdateRenderer(renderer.handle, frame == 0 ? nullptr : frameImage.pixels.data(),
                                   64, true, mask == 0 ? nullptr : maskImage.pixels.data()),
                  0);
    }

    static int shownFrame(const RendererHarness& renderer) {
        return renderer.readBack().Pixel(1, 1)[0];
    }

    static int shownMask(const RendererHarness& renderer) {
        return renderer.readBack().Pixel(1, 1)[3];
    }

    TestContext context;
};

TEST_F(Latency, EachCallShowsTheFrameOfTheCallBefore) {
    RendererHarness renderer({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 4, 4, 0, 0, 0});
    Fill(renderer.texture, Frame(99));
    call(renderer, 1);
    EXPECT_EQ(shownFrame(renderer), 99);
    call(renderer, 2);
    for (int frame = 3; frame < 9; ++frame) {
        call(renderer, frame);
        EXPECT_EQ(shownFrame(renderer), frame - 1);
    }
}

TEST_F(Latency, NullDataShowsThePendingFrameAndQueuesNothing) {
    RendererHarness renderer({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 4, 4, 0, 0, 0});
    call(renderer, 1);
    call(renderer, 2);
    call(renderer, 0);
    EXPECT_EQ(shownFrame(renderer), 2);
    call(renderer, 0);
    EXPECT_EQ(shownFrame(renderer), 2);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    call(renderer, 3);
    EXPECT_EQ(shownFrame(renderer), 2);
    call(renderer, 0);
    EXPECT_EQ(shownFrame(renderer), 3);
}

TEST_F(Latency, WithAMaskTwoCallsOnlyCreateAndBothUploadsAreLate) {
    RendererHarness renderer({VE_OUTPUT_MASKED, VE_MODE_RGBA, 4, 4, VE_MASK_RGBA, 2, 2});
    Fill(renderer.texture, Frame(99));
    call(renderer, 1, 51);
    call(renderer, 2, 52);
    EXPECT_EQ(shownFrame(renderer), 99);
    call(renderer, 3, 53);
    call(renderer, 4, 54);
    EXPECT_EQ(shownFrame(renderer), 3);
    EXPECT_EQ(shownMask(renderer), 53);
    // A null mask completes the upload of the last one, which then stays.
    call(renderer, 5, 0);
    EXPECT_EQ(shownFrame(renderer), 4);
    EXPECT_EQ(shownMask(renderer), 54);
    call(renderer, 6, 0);
    EXPECT_EQ(shownFrame(renderer), 5);
    EXPECT_EQ(shownMask(renderer), 54);
}

TEST_F(Latency, ABufferThatCannotBeMappedDropsItsFrame) {
    RendererHarness renderer({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 4, 4, 0, 0, 0});
    call(renderer, 1);
    call(renderer, 2);
    {
        const Replaced mapsNothing(GLES3::glMapBufferRange,
                                   [](auto...) -> void* { return nullptr; });
        call(renderer, 3);
    }
    call(renderer, 4);
    EXPECT_EQ(shownFrame(renderer), 2);
    call(renderer, 0);
    EXPECT_EQ(shownFrame(renderer), 4);
}

}  // namespace
