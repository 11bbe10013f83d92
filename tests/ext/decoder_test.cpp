// The guarded renderer of compressed video, with the real decoder, JVM and GL.

#include <GLES3/gl3.h>
#include <linux_platform/Host.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "DecodeFixture.h"
#include "Life.h"
#include "render/VERendererExt.h"
#include "support/RendererHarness.h"

namespace {

constexpr int kPictures = 20;
constexpr int64_t kWaitUs = 10'000'000;

TestStream GrayStream() {
    TestStream stream;
    stream.bFrames = 2;
    stream.picture = [](int index) { return Gray(static_cast<uint8_t>(30 + 10 * index)); };
    return stream;
}

VEUnit UnitOf(const TestUnit& unit, int64_t startUs = 0) {
    VEUnit given = VEMakeUnit();
    given.data = unit.bytes.data();
    given.size = unit.bytes.size();
    given.ptsUs = startUs + unit.timeUs;
    given.waitUs = kWaitUs;
    return given;
}

VEUnit EndUnit() {
    VEUnit unit = VEMakeUnit();
    unit.flags = VE_UNIT_END;
    unit.waitUs = kWaitUs;
    return unit;
}

/// A guarded renderer and its decoder.
class DecoderRenderer {
public:
    explicit DecoderRenderer(void (*onPicture)(void*) = nullptr, void* listener = nullptr,
                             int width = 320, int height = 240) {
        VERendererOptions options = VEMakeRendererOptions();
        options.source = VE_SOURCE_H264;
        options.sourceWidth = width;
        options.sourceHeight = height;
        options.outputTexture = texture;
        options.javaVM = Jvm();
        options.onPicture = onPicture;
        options.listener = listener;
        EXPECT_EQ(VECreateRenderer(&options, &handle), VE_OK);
        host = HostDecoder_acquire();
    }
    ~DecoderRenderer() {
        HostDecoder_release(host);
        EXPECT_EQ(VECloseRenderer(handle, VE_CONTEXT_CURRENT), VE_OK);
        glDeleteTextures(1, &texture);
    }
    DecoderRenderer(const DecoderRenderer&) = delete;
    DecoderRenderer& operator=(const DecoderRenderer&) = delete;

    VEDrawn draw() const {
        VEDrawn drawn = VEMakeDrawn();
        EXPECT_EQ(VEDraw(handle, nullptr, &drawn), VE_OK);
        return drawn;
    }
    VEDecoderState state() const {
        VEDecoderState state = VEMakeDecoderState();
        EXPECT_EQ(VEGetDecoderState(handle, &state), VE_OK);
        return state;
    }
    /// Draws until the decoder lets the unit in.
    void queue(VEUnit unit) {
        unit.waitUs = 0;
        while (HostDecoder_waitForInput(host, 1000) != HOST_READY) {
            collect();
        }
        EXPECT_EQ(VEQueueUnit(handle, &unit), VE_OK);
    }
    /// Draws once, and notes the picture if it is new.
    void collect() {
        const VEDrawn drawn = draw();
        if (drawn.newPicture) {
            times.push_back(drawn.ptsUs);
            levels.push_back(ReadBack(texture, {320, 240}).At(160, 120)[0]);
        }
    }

    unsigned texture = NewTexture();
    VERenderer* handle = nullptr;
    HostDecoder* host = nullptr;
    std::vector<int64_t> times;
    std::vector<int> levels;
};

class Decoder : public DecodeTest {
protected:
    ~Decoder() override {
        HostPlatform_setStrict(getenv("LINUX_PLATFORM_STRICT") != nullptr ? 1 : 0);
    }

    std::vector<TestUnit> units_ = Encode(GrayStream(), kPictures);
};

TEST_F(Decoder, ShowsAllPicturesInOrderWithTheirTimesAndSeesTheEnd) {
    std::atomic<int> told = 0;
    DecoderRenderer renderer([](void* counter) { ++*static_cast<std::atomic<int>*>(counter); },
                             &told);
    EXPECT_FALSE(renderer.draw().picture);
    HostDecoder_setLockStep(renderer.host, 1);
    for (const TestUnit& unit : units_) {
        renderer.queue(UnitOf(unit));
    }
    EXPECT_FALSE(renderer.state().endOfStream);
    renderer.queue(EndUnit());
    const VEUnit late = UnitOf(units_[0]);
    EXPECT_EQ(VEQueueUnit(renderer.handle, &late), VE_ERROR_ARGUMENT) << "after the end";
    while (!renderer.state().endOfStream) {
        renderer.collect();
    }
    ASSERT_EQ(renderer.times.size(), static_cast<size_t>(kPictures));
    for (int i = 0; i < kPictures; ++i) {
        const auto index = static_cast<size_t>(i);
        EXPECT_EQ(renderer.times[index], i * kFrameTimeUs);
        EXPECT_NEAR(renderer.levels[index], (30 + 10 * i - 16) * 255 / 219.0, 3) << "picture " << i;
    }
    EXPECT_FALSE(renderer.draw().newPicture);
    EXPECT_EQ(renderer.draw().ptsUs, (kPictures - 1) * kFrameTimeUs);

    const VEDecoderState state = renderer.state();
    EXPECT_EQ(state.result, VE_OK);
    EXPECT_EQ(state.unitsQueued, uint64_t{kPictures} + 1);
    EXPECT_EQ(state.unitsDropped, 1U);
    EXPECT_EQ(state.picturesDecoded, uint64_t{kPictures});
    EXPECT_EQ(state.picturesShown, uint64_t{kPictures});
    EXPECT_EQ(told, kPictures);
    EXPECT_EQ(state.width - state.cropLeft, 320);
    EXPECT_EQ(state.cropRight - state.cropLeft, 319);
    EXPECT_EQ(state.cropBottom - state.cropTop, 239);
}

TEST_F(Decoder, PicturesOfTheSameTimeAndOfNegativeTimesAreNewOnes) {
    DecoderRenderer renderer;
    HostDecoder_setLockStep(renderer.host, 1);
    for (const TestUnit& unit : units_) {
        VEUnit given = UnitOf(unit);
        given.ptsUs = -7;
        renderer.queue(given);
    }
    renderer.queue(EndUnit());
    while (!renderer.state().endOfStream) {
        renderer.collect();
    }
    EXPECT_EQ(renderer.times, std::vector<int64_t>(kPictures, -7));
}

TEST_F(Decoder, NoPictureOfBeforeAFlushShows) {
    DecoderRenderer renderer;
    for (int64_t seek = 0; seek < 40; ++seek) {
        const int64_t start = seek * 1'000'000'000;
        for (const TestUnit& unit : units_) {
            const VEUnit given = UnitOf(unit, start);
            EXPECT_EQ(VEQueueUnit(renderer.handle, &given), VE_OK);
            const VEDrawn drawn = renderer.draw();
            if (drawn.newPicture) {
                EXPECT_GE(drawn.ptsUs, start);
            }
        }
        if (seek % 4 == 0) {
            const VEUnit end = EndUnit();
            EXPECT_EQ(VEQueueUnit(renderer.handle, &end), VE_OK);
            while (!renderer.state().endOfStream) {
                std::this_thread::yield();
            }
        }
        EXPECT_EQ(VEFlush(renderer.handle), VE_OK);
        EXPECT_FALSE(renderer.state().endOfStream);
        for (int i = 0; i < 3; ++i) {
            EXPECT_FALSE(renderer.draw().newPicture);
        }
    }
    EXPECT_EQ(renderer.state().result, VE_OK);
}

TEST_F(Decoder, APictureThatStandsThereWhenAFlushComesIsNotShown) {
    DecoderRenderer renderer;
    for (const TestUnit& unit : units_) {
        const VEUnit given = UnitOf(unit);
        EXPECT_EQ(VEQueueUnit(renderer.handle, &given), VE_OK);
        while (&unit == &units_[kPictures / 2] && !renderer.draw().picture) {
            std::this_thread::yield();
        }
    }
    const VEUnit end = EndUnit();
    EXPECT_EQ(VEQueueUnit(renderer.handle, &end), VE_OK);
    while (!renderer.state().endOfStream) {
        std::this_thread::yield();
    }
    EXPECT_EQ(VEFlush(renderer.handle), VE_OK);
    EXPECT_FALSE(renderer.draw().picture);
}

TEST_F(Decoder, CropAndRotationApplyToThePictureAlone) {
    constexpr int kWidth = 300;  // Padded to 320 × 208 in strict mode.
    constexpr int kHeight = 200;
    TestStream stream;
    stream.width = kWidth;
    stream.height = kHeight;
    stream.picture = [](int) {
        return TestStream::Quarters{Yuv{50, 128, 128}, Yuv{90, 128, 128}, Yuv{130, 128, 128},
                                    Yuv{170, 128, 128}};
    };
    const std::vector<TestUnit> units = Encode(stream, 3);
    const auto red = [](int luma) { return (luma - 16) * 255 / 219; };
    HostPlatform_setStrict(1);
    for (const int rotation : {0, 90, 180, 270}) {
        HostBehavior behavior = {};
        behavior.rotation = rotation;
        HostDecoder_setBehavior(nullptr, &behavior);
        DecoderRenderer renderer(nullptr, nullptr, kWidth, kHeight);
        for (const TestUnit& unit : units) {
            renderer.queue(UnitOf(unit));
        }
        renderer.queue(EndUnit());
        while (renderer.times.empty() || !renderer.state().endOfStream) {
            renderer.collect();
        }
        // The quarters around the picture's edge, clockwise from the first row and column.
        const int turned = rotation / 90;
        const int lumas[] = {50, 90, 170, 130};
        const int places[][2] = {
            {0, 0}, {kWidth - 1, 0}, {kWidth - 1, kHeight - 1}, {0, kHeight - 1}};
        const Image shown = ReadBack(renderer.texture, {kWidth, kHeight});
        for (int corner = 0; corner < 4; ++corner) {
            EXPECT_NEAR(shown.At(places[corner][0], places[corner][1])[0],
                        red(lumas[(corner - turned + 4) % 4]), 3)
                << rotation << " degrees, corner " << corner;
        }
        EXPECT_EQ(renderer.state().width, 320);
        EXPECT_EQ(renderer.state().cropRight, kWidth - 1);
    }
}

TEST_F(Decoder, APictureWithoutCropIsTheSameWithoutItsMatrix) {
    HostPlatform_setStrict(0);  // Strict matrices shrink the picture by half a texel.
    const TestUnit unit = Encode(ChangingStream(), 1).front();
    DecoderRenderer guarded;
    guarded.queue(UnitOf(unit));
    guarded.queue(EndUnit());
    while (guarded.times.empty()) {
        guarded.collect();
    }
    const VEView view = {0, 0, 2};
    VEDrawOptions draw = VEMakeDrawOptions();
    draw.view = &view;
    EXPECT_EQ(VEDraw(guarded.handle, &draw, nullptr), VE_OK);
    const unsigned texture = NewTexture();
    VERendererMode mode = {VE_OUTPUT_PICTURE, VE_MODE_H264, 320, 240, 0, 0, 0};
    void* plain = nullptr;
    VECreateRendererHandle(&plain, static_cast<int>(texture), &mode, Jvm());
    HostDecoder* host = HostDecoder_acquire();
    std::vector<uint8_t> bytes = unit.bytes;
    VEUpdateCompressedData(plain, bytes.data(), static_cast<int>(bytes.size()));
    HostDecoder_waitForFrame(host, 0, kWaitUs, nullptr);
    VEUpdateRenderer(plain, nullptr, 0, true, nullptr);
    EXPECT_EQ(ReadBack(guarded.texture, {320, 240}).pixels, ReadBack(texture, {320, 240}).pixels);
    HostDecoder_release(host);
    VEDestroyRenderer(plain);
}

TEST_F(Decoder, LivesOfTwoThreadsInBothWays) {
    LiveOnTwoThreads(Jvm(), LIVES);
}

}  // namespace
