// What becomes of failures of Java and of the decoder in a guarded renderer. The platform is a
// fake; GL is real.

#include <GLES3/gl3.h>
#include <gtest/gtest.h>
#include <media/NdkMediaCodec.h>

#include <chrono>
#include <functional>
#include <thread>

#include "library/FakePlatform.h"
#include "render/VERendererExt.h"
#include "support/LogCapture.h"
#include "support/RendererHarness.h"

namespace {

class DecoderFailure : public testing::Test {
protected:
    DecoderFailure() {
        platform.exception = false;
        platform.inputCapacity = platform.inputBuffer.size();
    }
    ~DecoderFailure() override {
        platform.failing.clear();
        platform.inputIndex = 3;
        platform.inputCapacity = 1;
        platform.outputIndex = -1;
        platform.outputSize = 0;
        platform.releaseStatus = AMEDIA_OK;
        platform.pictureSide = 64;
        platform.exception = false;
        platform.unblockOutput();
        waitUntil([this] { return platform.alive == aliveBefore; });
        LogCapture::Take();
    }

    VEResult create() {
        VERendererOptions options = VEMakeRendererOptions();
        options.source = VE_SOURCE_H264;
        options.sourceWidth = 64;
        options.sourceHeight = 48;
        options.outputTexture = texture;
        options.javaVM = platform.jvm();
        options.closeWaitMs = 20;
        return VECreateRenderer(&options, &renderer);
    }
    VEResult close() { return VECloseRenderer(renderer, VE_CONTEXT_CURRENT); }

    VEDecoderState state() const {
        VEDecoderState state = VEMakeDecoderState();
        EXPECT_EQ(VE_OK, VEGetDecoderState(renderer, &state));
        return state;
    }
    void expectFailed(VEResult result, int32_t code) const {
        waitUntil([this] { return state().result != VE_OK; });
        EXPECT_EQ(result, state().result);
        EXPECT_EQ(code, state().platformCode);
        EXPECT_EQ(result, queue(4));
        EXPECT_EQ(result, VEFlush(renderer));
        const int polls = platform.polls;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_LE(platform.polls, polls + 1) << "asked again";
    }
    VEResult queue(size_t size) const {
        const std::vector<unsigned char> bytes(size);
        VEUnit unit = VEMakeUnit();
        unit.data = bytes.data();
        unit.size = size;
        return VEQueueUnit(renderer, &unit);
    }
    static void waitUntil(const std::function<bool()>& condition) {
        for (int i = 0; i < 5000 && !condition(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        EXPECT_TRUE(condition());
    }

    TestContext context;
    FakePlatform& platform = FakePlatform::Get();
    int aliveBefore = platform.alive;
    unsigned texture = NewTexture();
    VERenderer* renderer = nullptr;
};

TEST_F(DecoderFailure, CreationSaysWhyAndLeavesNothing) {
    const struct {
        const char* step;
        VEResult result;
    } cases[] = {{"AttachCurrentThread", VE_ERROR_JAVA},
                 {"PushLocalFrame", VE_ERROR_MEMORY},
                 {"FindClass android/graphics/SurfaceTexture", VE_ERROR_JAVA},
                 {"GetMethodID <init>(I)V", VE_ERROR_JAVA},
                 {"NewObject", VE_ERROR_JAVA},
                 {"GetMethodID release()V", VE_ERROR_JAVA},
                 {"NewGlobalRef", VE_ERROR_JAVA},
                 {"FindClass android/view/Surface", VE_ERROR_JAVA},
                 {"GetMethodID <init>(Landroid/graphics/SurfaceTexture;)V", VE_ERROR_JAVA},
                 {"GetObjectClass", VE_ERROR_JAVA},
                 {"GetMethodID updateTexImage()V", VE_ERROR_JAVA},
                 {"GetMethodID getTimestamp()J", VE_ERROR_JAVA},
                 {"GetMethodID getTransformMatrix([F)V", VE_ERROR_JAVA},
                 {"ANativeWindow_fromSurface", VE_ERROR_JAVA},
                 {"AMediaFormat_new", VE_ERROR_MEMORY},
                 {"AMediaCodec_createDecoderByType video/avc", VE_ERROR_NO_DECODER},
                 {"AMediaCodec_configure window none 0", VE_ERROR_DECODER},
                 {"AMediaCodec_start", VE_ERROR_DECODER}};
    const int misuse = platform.callsWithException;
    for (const auto& [step, result] : cases) {
        SCOPED_TRACE(step);
        platform.failing = {step};
        EXPECT_EQ(result, create());
        EXPECT_EQ(nullptr, renderer);
        EXPECT_FALSE(platform.exception);
        EXPECT_EQ(misuse, platform.callsWithException);
        EXPECT_EQ(aliveBefore, platform.alive);
        for (unsigned name = texture + 1; name < texture + 100; ++name) {
            EXPECT_EQ(GL_FALSE, glIsTexture(name)) << "the external texture is left";
        }
    }
    EXPECT_EQ(VE_OK, VECheckSource(VE_SOURCE_H264));
    platform.failing = {"AMediaCodec_createDecoderByType video/mjpeg"};
    EXPECT_EQ(VE_ERROR_NO_DECODER, VECheckSource(VE_SOURCE_MJPEG));
}

TEST_F(DecoderFailure, AnExceptionOfTheApplicationStaysPending) {
    const int misuse = platform.callsWithException;
    platform.exception = true;
    EXPECT_EQ(VE_OK, create());
    EXPECT_EQ(VE_OK, VEDraw(renderer, nullptr, nullptr));
    EXPECT_TRUE(platform.exception);
    EXPECT_EQ(VE_OK, close());
    EXPECT_TRUE(platform.exception);
    EXPECT_EQ(misuse, platform.callsWithException);
}

TEST_F(DecoderFailure, AFailedLatchIsAnErrorOfThatDrawOnly) {
    ASSERT_EQ(VE_OK, create());
    for (const char* step : {"CallVoidMethod", "CallLongMethod", "PushLocalFrame"}) {
        platform.failing = {step};
        EXPECT_LT(VEDraw(renderer, nullptr, nullptr), 0) << step;
        EXPECT_FALSE(platform.exception);
    }
    platform.failing.clear();
    EXPECT_EQ(VE_OK, VEDraw(renderer, nullptr, nullptr));
    platform.failing = {"CallVoidMethod"};  // release(), too.
    EXPECT_EQ(VE_OK, close());
}

TEST_F(DecoderFailure, TheOutputSidesErrorEndsItsThread) {
    const struct {
        int index;
        media_status_t release;
        VEResult result;
        int32_t code;
    } cases[] = {
        {AMEDIA_ERROR_UNKNOWN, AMEDIA_OK, VE_ERROR_DECODER, AMEDIA_ERROR_UNKNOWN},
        {AMEDIACODEC_ERROR_RECLAIMED, AMEDIA_OK, VE_ERROR_RECLAIMED, AMEDIACODEC_ERROR_RECLAIMED},
        {0, AMEDIA_ERROR_MALFORMED, VE_ERROR_DECODER, AMEDIA_ERROR_MALFORMED}};
    for (const auto& [index, release, result, code] : cases) {
        platform.outputIndex = index;
        platform.releaseStatus = release;
        ASSERT_EQ(VE_OK, create());
        expectFailed(result, code);
        EXPECT_EQ(VE_OK, VEDraw(renderer, nullptr, nullptr)) << "the picture on screen stays";
        EXPECT_EQ(VE_OK, close());
    }
}

TEST_F(DecoderFailure, TheInputSidesErrorsAreReturned) {
    const auto expect = [this](VEResult result, int32_t code) {
        ASSERT_EQ(VE_OK, create());
        EXPECT_EQ(result, queue(4));
        expectFailed(result, code);
        EXPECT_EQ(2U, state().unitsDropped);
        EXPECT_EQ(VE_OK, close());
    };
    platform.inputIndex = AMEDIACODEC_ERROR_RECLAIMED;
    expect(VE_ERROR_RECLAIMED, AMEDIACODEC_ERROR_RECLAIMED);
    platform.inputIndex = 3;
    platform.failing = {"AMediaCodec_getInputBuffer"};
    expect(VE_ERROR_DECODER, AMEDIA_ERROR_UNKNOWN);
    platform.failing = {"AMediaCodec_queueInputBuffer 3 0 4 0 0"};
    expect(VE_ERROR_DECODER, AMEDIA_ERROR_UNKNOWN);
}

TEST_F(DecoderFailure, AFlushThatFailsIsReturnedAndEndsTheDecoder) {
    ASSERT_EQ(VE_OK, create());
    platform.failing = {"AMediaCodec_flush"};
    EXPECT_EQ(VE_ERROR_DECODER, VEFlush(renderer));
    expectFailed(VE_ERROR_DECODER, AMEDIA_ERROR_UNKNOWN);
    EXPECT_EQ(VE_OK, close());
}

TEST_F(DecoderFailure, PicturesLargerThanGlAllowsAreAnError) {
    platform.pictureSide = 1 << 20;
    platform.outputIndex = AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED;
    ASSERT_EQ(VE_OK, create());
    expectFailed(VE_ERROR_PICTURE_SIZE, 0);
    EXPECT_EQ(1 << 20, state().width);
    EXPECT_EQ(VE_OK, close());
}

TEST_F(DecoderFailure, BadUnitsAreRefusedAndAFlushBeforeTheEndIsNoEnd) {
    ASSERT_EQ(VE_OK, create());
    void (*const spoil[])(VEUnit&) = {[](VEUnit& unit) { unit.data = nullptr; },
                                      [](VEUnit& unit) { unit.size = 0; },
                                      [](VEUnit& unit) { unit.waitUs = -1; },
                                      [](VEUnit& unit) { unit.flags = 8; },
                                      [](VEUnit& unit) { unit.structSize = 2; },
                                      [](VEUnit& unit) {
            unit.ptsUs = INT64_MAX / 1000; }};
    const char bytes[4] = {};
    for (const auto& change : spoil) {
        VEUnit unit = VEMakeUnit();
        unit.data = bytes;
        unit.size = sizeof(bytes);
        change(unit);
        EXPECT_EQ(VE_ERROR_ARGUMENT, VEQueueUnit(renderer, &unit)) << &change - spoil;
    }
    EXPECT_EQ(VE_OK, VEFlush(renderer));
    EXPECT_FALSE(state().endOfStream);
    EXPECT_EQ(0U, state().unitCapacity);
    EXPECT_EQ(VE_OK, close());
}

TEST_F(DecoderFailure, UnitsThatAreTooLargeOrFindNoBufferAreNotCopied) {
    ASSERT_EQ(VE_OK, create());
    platform.takeJournal();
    const size_t capacity = platform.inputBuffer.size();
    EXPECT_EQ(VE_ERROR_UNIT_SIZE, queue(capacity + 1));
    EXPECT_EQ(capacity, state().unitCapacity);
    EXPECT_EQ(VE_OK, queue(capacity));
    EXPECT_EQ((std::vector<std::string>{
                  "AMediaCodec_dequeueInputBuffer 0", "AMediaCodec_getInputBuffer 3",
                  "AMediaCodec_getInputBuffer 3", "AMediaCodec_queueInputBuffer 3 0 64 0 0"}),
              platform.takeJournal());
    platform.inputIndex = AMEDIACODEC_INFO_TRY_AGAIN_LATER;
    EXPECT_EQ(VE_AGAIN, queue(capacity));
    EXPECT_EQ(VE_OK, state().result);
    EXPECT_EQ(VE_OK, close());
}

TEST_F(DecoderFailure, ALongCallOutlivesTheRenderer) {
    platform.blockOutput();
    ASSERT_EQ(VE_OK, create());
    waitUntil([this] { return platform.threadsInOutput() == 1; });
    EXPECT_EQ(VE_OK, VEFlush(renderer)) << "a flush waits no longer than the end";
    EXPECT_EQ(VE_BUSY, close());
    EXPECT_EQ(aliveBefore + 1, platform.alive) << "the decoder only";
    platform.unblockOutput();
    waitUntil([this] { return platform.alive == aliveBefore; });
}

}  // namespace
