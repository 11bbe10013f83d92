// What the renderer of compressed video does to the caller's GL state.

#include "DecodeFixture.h"
#include "support/GlSnapshot.h"
#include "support/RendererHarness.h"

namespace {

class State : public DecodeTest {
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

    void AwaitFrame(int64_t seen) {
        EXPECT_EQ(HostDecoder_waitForFrame(decoder_, seen, 10'000'000, nullptr), HOST_READY);
    }

    unsigned texture_ = 0;
    void* handle_ = nullptr;
    HostDecoder* decoder_ = nullptr;
};

/// What a draw of output mode 0 changes.
const StateNames kChangedByDraw =
    ChangedByDraw({"GL_TEXTURE_BINDING_EXTERNAL_OES 0", "GL_TEXTURE_BINDING_EXTERNAL_OES 5"});

TEST_F(State, EveryCallChangesOnlyWhatTheHeaderLists) {
    const HostileState hostile;
    hostile.SetUnpacking();
    EXPECT_EQ(ChangedBy([this] { Create(); }),
              (StateNames{"GL_ARRAY_BUFFER_BINDING", "GL_VERTEX_ARRAY_BINDING"}));
    EXPECT_EQ(ChangedBy([this] { Feed(); }), StateNames());
    EXPECT_EQ(ChangedBy([this] { VEUpdateUserPosition(handle_, 1, 1, 1, 1); }), StateNames());
    const auto update = [this] {
        EXPECT_EQ(VEUpdateRenderer(handle_, nullptr, 0, true, nullptr), 0);
    };
    // The first draw makes objects; the second has them.
    hostile.Set();
    AwaitFrame(0);
    EXPECT_EQ(ChangedBy(update), kChangedByDraw);
    for (int64_t seen = 1; seen < 3; ++seen) {
        hostile.SetUnpacking();
        AwaitFrame(seen);
        EXPECT_EQ(ChangedBy(update), kChangedByDraw);
    }
    // There is no new picture.
    hostile.SetUnpacking();
    EXPECT_EQ(ChangedBy(update), kChangedByDraw);
    hostile.SetUnpacking();
    EXPECT_EQ(ChangedBy([this] { VEDestroyRenderer(std::exchange(handle_, nullptr)); }),
              StateNames());

    // None of it reached the picture.
    const Image image = ReadBack(texture_, {320, 240});
    const int gray = (30 + 37 * 2 - 16) * 255 / 219;
    EXPECT_NEAR(image.At(300, 200)[0], gray, 2);
    EXPECT_NEAR(image.At(319, 239)[0], gray, 2);
}

TEST_F(State, MasksAndStickersAddWhatTheHeaderLists) {
    const HostileState hostile;
    Create(VE_OUTPUT_MASKED);
    Feed();
    AwaitFrame(0);
    uint8_t mask[] = {255, 255, 255, 90};
    VEStickerList stickers = {{160, 120}};
    const auto update = [&] {
        VEUpdateRendererWithSticker(handle_, nullptr, 0, true, mask,
                                    static_cast<int>(hostile.Texture()), stickers);
    };
    update();  // Makes the mask's texture.
    update();
    hostile.Set();
    StateNames expected = kChangedByDraw;
    expected.insert({"GL_TEXTURE_BINDING_2D 2", "GL_TEXTURE_BINDING_2D 5"});
    EXPECT_EQ(ChangedBy(update), expected);
}

}  // namespace
