// What is left of a guarded renderer, and what it refuses.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

#include "ext/ExtRenderer.h"
#include "ext/GlNameCount.h"
#include "support/GlRecorder.h"

namespace {

class ExtLifetime : public testing::Test {
protected:
    TestContext context;
    Image frame = Noise({8, 8}, 1);
    Image mask = Noise({4, 4}, 2);
    unsigned sticker = NewTexture();

    VERendererOptions decoratedOptions() const {
        return WithMask(OptionsOf(VE_SOURCE_RGBA, 8, 8), mask, VE_MASK_RGBA);
    }

    /// A renderer that has made all that it ever makes.
    VERenderer* makeUsed(const VERendererOptions& options) {
        VERenderer* renderer = nullptr;
        EXPECT_EQ(VE_OK, VECreateRenderer(&options, &renderer));
        const int32_t place[2] = {4, 4};
        VEDrawOptions draw = VEMakeDrawOptions();
        draw.frame = frame.pixels.data();
        draw.mask = mask.pixels.data();
        draw.stickerTexture = sticker;
        draw.stickers = place;
        draw.stickerCount = 1;
        for (int call = 0; call < 3; ++call) {
            EXPECT_EQ(VE_OK, VEDraw(renderer, &draw, nullptr));
        }
        return renderer;
    }
};

TEST_F(ExtLifetime, ClosingLeavesNoGlName) {
    VERendererOptions options = decoratedOptions();
    Fill(options.outputTexture, frame);
    Fill(sticker, frame);
    const int before = CountGlNames();
    VERenderer* renderer = makeUsed(options);
    EXPECT_GT(CountGlNames(), before + 9);
    EXPECT_EQ(VE_OK, VECloseRenderer(renderer, VE_CONTEXT_CURRENT));
    EXPECT_EQ(before, CountGlNames());
    VEDestroyRenderer(makeUsed(options));
    EXPECT_EQ(before, CountGlNames());
}

TEST_F(ExtLifetime, AfterTheContextWasLostNoGlCallIsMade) {
    const VERendererOptions options = decoratedOptions();
    VERenderer* renderer = makeUsed(options);
    const GlRecorder recorder;
    EXPECT_EQ(VE_OK, VECloseRenderer(renderer, VE_CONTEXT_LOST));
    EXPECT_TRUE(GlRecorder::take().empty());
}

TEST_F(ExtLifetime, AFrameFitsPixelByPixelAlsoStorageThatCannotChange) {
    VERendererOptions options = decoratedOptions();
    glBindTexture(GL_TEXTURE_2D, options.outputTexture);
    glTexStorage2D(GL_TEXTURE_2D, 1, GL_RGBA8, 8, 8);
    ExtRenderer renderer(options);
    renderer.drawFrame(&frame);
    EXPECT_EQ(frame.pixels, renderer.readBack().pixels);
}

TEST_F(ExtLifetime, StorageThatIsGivenIsTransparentBlack) {
    const VERendererOptions options = decoratedOptions();
    Fill(options.outputTexture, Noise({8, 8}, 4));
    glEnable(GL_SCISSOR_TEST);
    glClearColor(1, 1, 1, 1);
    const ExtRenderer renderer(options);
    EXPECT_EQ(Solid({8, 8}, {0, 0, 0, 0}).pixels, renderer.readBack().pixels);
}

TEST_F(ExtLifetime, HandlesWithoutADecoderAndOfTheOtherWayInAreRefused) {
    RendererHarness seven({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 8, 8, 0, 0, 0});
    ExtRenderer raw(OptionsOf(VE_SOURCE_RGBA, 8, 8));
    auto* sevens = static_cast<VERenderer*>(seven.handle);
    VEDecoderState state = VEMakeDecoderState();
    VEUnit unit = VEMakeUnit();
    for (VERenderer* handle : {static_cast<VERenderer*>(nullptr), sevens, raw.handle}) {
        const VEResult result = handle == raw.handle ? VE_ERROR_UNSUPPORTED : VE_ERROR_HANDLE;
        EXPECT_EQ(result, VEQueueUnit(handle, &unit));
        EXPECT_EQ(result, VEFlush(handle));
        EXPECT_EQ(result, VEGetDecoderState(handle, &state));
        EXPECT_EQ(result, VEGetSurface(handle, nullptr, nullptr));
    }
    for (VERenderer* handle : {static_cast<VERenderer*>(nullptr), sevens}) {
        EXPECT_EQ(VE_ERROR_HANDLE, VEDraw(handle, nullptr, nullptr));
        EXPECT_EQ(VE_ERROR_HANDLE, VECloseRenderer(handle, VE_CONTEXT_CURRENT));
    }
}

TEST_F(ExtLifetime, WhatAnotherKindOfRendererNeedsIsNotLookedAt) {
    VERendererOptions options = OptionsOf(VE_SOURCE_TEXTURE_2D, 8, 8);
    options.sourceWidth = options.sourceHeight = 1 << 20;
    options.maskWidth = options.maskHeight = 1 << 20;
    ExtRenderer renderer(options);
    EXPECT_EQ(0, VEUpdateRenderer(renderer.handle, frame.pixels.data(), 0, true, nullptr));
    glBindTexture(GL_TEXTURE_2D, options.outputTexture);
    for (const GLenum name : {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T}) {
        GLint wrap = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, name, &wrap);
        EXPECT_EQ(GL_CLAMP_TO_EDGE, wrap);
    }
}

/// One change to usable options, and what is answered.
template <typename Options>
struct Bad {
    void (*spoil)(Options& options);
    VEResult result;
};

TEST_F(ExtLifetime, CreationRefusesBadOptionsAndLeavesNothing) {
    const Bad<VERendererOptions> cases[] = {
        {[](VERendererOptions& o) { o.structSize = 2; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.source = VE_MODE_NONE; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.sourceWidth = 0; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.outputHeight = -1; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.outputTexture = 0; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.toFramebuffer = true; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.drawLater = o.drawOnce = true; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) {
             o.outputTexture = 0;
             o.toFramebuffer = true;
             o.outputFramebuffer = 99;
         },
         VE_ERROR_GL},
        {[](VERendererOptions& o) { o.outputFormat = 7; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.maskFormat = 4; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.maskWidth = 0; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.closeWaitMs = -1; }, VE_ERROR_ARGUMENT},
        {[](VERendererOptions& o) { o.sourceHeight = 1 << 20; }, VE_ERROR_PICTURE_SIZE},
        {[](VERendererOptions& o) { o.maskHeight = 1 << 20; }, VE_ERROR_PICTURE_SIZE},
        {[](VERendererOptions& o) {
             glBindTexture(GL_TEXTURE_3D, o.outputTexture);  // No longer a 2D texture.
         },
         VE_ERROR_GL},
    };
    const int before = CountGlNames();
    for (const Bad<VERendererOptions>& bad : cases) {
        VERendererOptions options = decoratedOptions();
        const unsigned texture = options.outputTexture;
        bad.spoil(options);
        auto* renderer = reinterpret_cast<VERenderer*>(this);
        EXPECT_EQ(bad.result, VECreateRenderer(&options, &renderer)) << &bad - cases;
        EXPECT_EQ(nullptr, renderer);
        glDeleteTextures(1, &texture);
    }
    EXPECT_EQ(before, CountGlNames());
    VERenderer* renderer = nullptr;
    EXPECT_EQ(VE_ERROR_ARGUMENT, VECreateRenderer(nullptr, &renderer));
    const VERendererOptions options = decoratedOptions();
    EXPECT_EQ(VE_ERROR_ARGUMENT, VECreateRenderer(&options, nullptr));
}

TEST_F(ExtLifetime, DrawRefusesBadOptionsAndChangesNothing) {
    static const uint8_t pixels[4] = {};
    static const VEView view = {0, NAN, 2};
    static const VEView inPlane = {0, 0, 6};
    static const float matrix[16] = {};
    const Bad<VEDrawOptions> cases[] = {
        {[](VEDrawOptions& o) { o.structSize = 0; }, VE_ERROR_ARGUMENT},
        {[](VEDrawOptions& o) { o.rotation = 45; }, VE_ERROR_ARGUMENT},
        {[](VEDrawOptions& o) { o.rotation = -90; }, VE_ERROR_ARGUMENT},
        {[](VEDrawOptions& o) { o.view = &view; }, VE_ERROR_ARGUMENT},
        {[](VEDrawOptions& o) { o.view = &inPlane; }, VE_ERROR_ARGUMENT},
        {[](VEDrawOptions& o) { o.stickerCount = 1; }, VE_ERROR_ARGUMENT},
        {[](VEDrawOptions& o) { o.mask = pixels; }, VE_ERROR_UNSUPPORTED},
        {[](VEDrawOptions& o) { o.mask = pixels, o.maskTexture = 1; }, VE_ERROR_ARGUMENT},
        {[](VEDrawOptions& o) { o.sourceTexture = 1; }, VE_ERROR_UNSUPPORTED},
        {[](VEDrawOptions& o) { o.sourceMatrix = matrix; }, VE_ERROR_UNSUPPORTED},
    };
    ExtRenderer renderer(OptionsOf(VE_SOURCE_RGBA, 8, 8));
    for (const Bad<VEDrawOptions>& bad : cases) {
        VEDrawOptions draw = VEMakeDrawOptions();
        draw.frame = frame.pixels.data();
        bad.spoil(draw);
        EXPECT_EQ(bad.result, VEDraw(renderer.handle, &draw, nullptr)) << &bad - cases;
    }
    EXPECT_FALSE(renderer.drawFrame(nullptr).picture);
    VEDrawn drawn = {};
    EXPECT_EQ(VE_ERROR_ARGUMENT, VEDraw(renderer.handle, nullptr, &drawn));
    ExtRenderer textures(OptionsOf(VE_SOURCE_TEXTURE_2D, 8, 8));
    VEDrawOptions draw = VEMakeDrawOptions();
    draw.frame = pixels;
    EXPECT_EQ(VE_ERROR_UNSUPPORTED, VEDraw(textures.handle, &draw, nullptr));
    EXPECT_FALSE(textures.draw(VEMakeDrawOptions()).picture);
}

TEST_F(ExtLifetime, StructsOfOlderAndNewerCallersAreTaken) {
    struct Newer {
        VEDrawOptions known;
        uint64_t unknown;
    };
    ExtRenderer renderer(OptionsOf(VE_SOURCE_RGBA, 8, 8));
    Newer newer = {VEMakeDrawOptions(), 0};
    newer.known.structSize = sizeof(newer);
    newer.known.frame = frame.pixels.data();
    EXPECT_EQ(VE_OK, VEDraw(renderer.handle, &newer.known, nullptr));
    newer.unknown = 1;
    EXPECT_EQ(VE_ERROR_ARGUMENT, VEDraw(renderer.handle, &newer.known, nullptr));

    VEDrawOptions older = newer.known;
    older.structSize = offsetof(VEDrawOptions, rotation);
    older.rotation = 45;
    VEDrawn drawn = VEMakeDrawn();
    drawn.structSize = offsetof(VEDrawn, ptsUs);
    drawn.ptsUs = 77;
    EXPECT_EQ(VE_OK, VEDraw(renderer.handle, &older, &drawn));
    EXPECT_TRUE(drawn.picture);
    EXPECT_EQ(77, drawn.ptsUs);
    drawn.structSize = sizeof(drawn.structSize);
    EXPECT_EQ(VE_OK, VEDraw(renderer.handle, &older, &drawn));
}

}  // namespace
