// Streams that are not what they should be.

#include <linux_platform/Host.h>
#include <media/NdkMediaError.h>

#include <functional>

#include "DecodeFixture.h"
#include "PlainModel.h"
#include "support/ToolError.h"
#include "support/VideoReader.h"

namespace {

constexpr int kCount = 30;
constexpr int kKeyInterval = 10;

TestStream Stream() {
    TestStream stream = ChangingStream();
    stream.keyInterval = kKeyInterval;
    return stream;
}

class Broken : public DecodeTest {
protected:
    /// Plays the units, of which those from \p first on are whole. Their pictures must be right,
    /// and the others may be anything.
    void ExpectRecovery(const std::vector<TestUnit>& units, int first) {
        av::CodecContext encoder;
        TestStream stream = Stream();
        stream.parameterSetsApart = true;
        Encode(stream, 1, &encoder);
        WriteMedia(Path("broken.mkv"), *encoder, units);
        WriteMedia(Path("whole.mkv"), *encoder, units_);
        std::vector<Image> drawn;
        const auto player = Open(Path("broken.mkv"));
        while (player->Next()) {
            player->Draw(kCropped);
            drawn.push_back(player->GetRenderer().ReadBack());
        }
        EXPECT_LE(drawn.size(), static_cast<size_t>(kCount));
        ASSERT_GE(drawn.size(), static_cast<size_t>(kCount - first));
        EXPECT_EQ(player->Lost(), kCount - static_cast<int>(drawn.size()));

        VideoReader reference(Path("whole.mkv"));
        const PlainModel model(player->GetRenderer().FrameSize());
        for (int i = 0; i < kCount; ++i) {
            const AVFrame* frame = reference.Next();
            if (i >= first) {
                const Image& picture = drawn[drawn.size() - static_cast<size_t>(kCount - i)];
                EXPECT_GE(model.Psnr(*frame, picture), 40.0) << i;
            }
        }
    }

    /// With the parameter sets in front of each key frame.
    std::vector<TestUnit> units_ = Encode(Stream(), kCount);
};

TEST_F(Broken, RecoversAtTheNextKeyFrame) {
    auto units = units_;
    units[4].bytes = {0, 0, 0, 1, 9, 0xF0};  // A delimiter and nothing else.
    ExpectRecovery(units, kKeyInterval);
    units = units_;
    uint32_t state = 1;
    for (size_t i = 5; i < units[5].bytes.size(); ++i) {
        state = state * 1664525U + 1013904223U;
        units[5].bytes[i] = static_cast<uint8_t>(state >> 24U);
    }
    ExpectRecovery(units, kKeyInterval);
    units = units_;
    units[kKeyInterval].bytes.resize(units[kKeyInterval].bytes.size() / 2);
    ExpectRecovery(units, 2 * kKeyInterval);
}

/// Plays until the error. \return its message without the file's directory, and the frames before
std::pair<std::string, int> PlayToError(
    const std::function<std::unique_ptr<CompressedSource>()>& open) {
    int frames = 0;
    try {
        for (const auto player = open(); player->Next(); ++frames) {
            player->Draw(kCropped);
        }
    } catch (const ToolError& error) {
        const std::string message = error.what();
        return {message.substr(message.rfind('/') + 1), frames};
    }
    return {"no error", frames};
}

TEST_F(DecodeTest, SaysWhichFileHasNoDecoderOrLosesIt) {
    WriteMedia(Path("clip.mp4"), Stream(), kCount);
    HostBehavior behavior = {};
    behavior.failing = HOST_CALL_CREATE;
    const auto openWithout = [&] {
        HostDecoder_setBehavior(nullptr, &behavior);
        return Open(Path("clip.mp4"));
    };
    EXPECT_EQ(PlayToError(openWithout).first,
              "clip.mp4: the platform has no decoder for this kind of video"
              "; --path cpu decodes without it");
    behavior.failAfterPictures = 7;
    const auto openFailing = [&] {
        auto player = Open(Path("clip.mp4"));
        HostDecoder* decoder = HostDecoder_acquire();
        HostDecoder_setBehavior(decoder, &behavior);
        HostDecoder_release(decoder);
        return player;
    };
    for (const uint32_t call : {HOST_CALL_DEQUEUE_OUTPUT, HOST_CALL_QUEUE_INPUT, HOST_CALL_ALL}) {
        behavior.failing = call;
        const auto [message, frames] = PlayToError(openFailing);
        EXPECT_EQ(message,
                  "clip.mp4: the decoder failed (code -10000); --path cpu decodes without it");
        EXPECT_GE(frames, 6);
        EXPECT_LE(frames, 8);  // One more may be under way.
    }
    behavior.error = AMEDIACODEC_ERROR_RECLAIMED;
    EXPECT_EQ(PlayToError(openFailing).first,
              "clip.mp4: the platform took the decoder away (code 1101)"
              "; --path cpu decodes without it");
}

}  // namespace
