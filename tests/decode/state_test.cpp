// What the renderer of compressed video does to the caller's GL state.

#include "DecodeFixture.h"
#include "support/HostileState.h"
#include "support/RendererHarness.h"
#include "support/StateTable.h"

namespace {

class State : public DecodeTest, public testing::WithParamInterface<unsigned> {
protected:
    State() { glGenTextures(1, &texture_); }
    ~State() override {
        HostDecoder_release(decoder_);
        VEDestroyRenderer(handle_);
    }

    void Create(int outputMode = VE_OUTPUT_PICTURE) {
        VERendererMode mode = {outputMode, VE_MODE_H264, 320, 240, VE_MASK_RGBA, 1, 1};
        VECreateRendererHandle(&handle_, static_cast<int>(texture_), &mode, Jvm());
    }

    void Feed() {
        decoder_ = HostDecoder_acquire();
        HostDecoder_setLockStep(decoder_, 1);
        for (TestUnit& unit : Encode(ChangingStream(), 3)) {
            const auto size = static_cast<int>(unit.bytes.size());
            EXPECT_EQ(VEUpdateCompressedData(handle_, unit.bytes.data(), size), 0);
        }
    }

    void ExpectKept(const char* call, StateNames given, const std::function<void()>& make) const {
        given.insert("compressed");
        table_.expectKept({call, given, 320, 240}, make);
    }

    void AwaitFrame(int64_t seen) {
        EXPECT_EQ(HostDecoder_waitForFrame(decoder_, seen, 10'000'000, nullptr), HOST_READY);
    }

    const StateTable table_ = StateTable("VERenderer.h");
    unsigned texture_ = 0;
    void* handle_ = nullptr;
    HostDecoder* decoder_ = nullptr;
};

TEST_P(State, EveryCallLeavesWhatTheHeaderPromises) {
    const HostileState hostile(GetParam());
    hostile.SetUnpacking();
    ExpectKept("creation", {}, [this] { Create(); });
    ExpectKept("", {}, [this] { Feed(); });
    ExpectKept("", {}, [this] { VEUpdateUserPosition(handle_, 1, 1, 1, 1); });
    const auto update = [this] {
        EXPECT_EQ(VEUpdateRenderer(handle_, nullptr, 0, true, nullptr), 0);
    };
    // The first draw makes objects; the second has them.
    hostile.Set();
    AwaitFrame(0);
    ExpectKept("draw", {}, update);
    for (int64_t seen = 1; seen < 3; ++seen) {
        hostile.SetUnpacking();
        AwaitFrame(seen);
        ExpectKept("draw", {}, update);
    }
    // There is no new picture.
    hostile.SetUnpacking();
    ExpectKept("draw", {}, update);
    hostile.SetUnpacking();
    ExpectKept("", {}, [this] { VEDestroyRenderer(std::exchange(handle_, nullptr)); });

    // None of it reached the picture.
    const Image image = ReadBack(texture_, {320, 240});
    const int gray = (30 + 37 * 2 - 16) * 255 / 219;
    EXPECT_NEAR(image.At(300, 200)[0], gray, 2);
    EXPECT_NEAR(image.At(319, 239)[0], gray, 2);
}

TEST_P(State, MasksAndStickersLeaveWhatTheHeaderPromises) {
    const HostileState hostile(GetParam());
    Create(VE_OUTPUT_MASKED);
    Feed();
    AwaitFrame(0);
    uint8_t mask[] = {255, 255, 255, 90};
    VEStickerList stickers = {{160, 120}};
    const auto update = [&](const char* call, StateNames given) {
        void* pixels = given.count("mask") != 0 ? mask : nullptr;
        hostile.Set();
        given.insert({"masked", "stickers"});
        ExpectKept(call, given, [&] {
            VEUpdateRendererWithSticker(handle_, nullptr, 0, true, pixels,
                                        static_cast<int>(hostile.Texture()), stickers);
        });
    };
    update("prepare", {"mask"});
    update("draw", {"mask"});
    update("draw", {"pending-mask"});
    update("draw", {});
}

INSTANTIATE_TEST_SUITE_P(Seeds, State, testing::Range(0U, 4U));

}  // namespace
