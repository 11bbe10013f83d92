#include "DecodeFixture.h"

#include <linux_platform/Host.h>

#include <array>
#include <cstdlib>

#include "PlainModel.h"
#include "support/VideoReader.h"

namespace {

JavaVM* jvm = nullptr;

/// Starts the JVM before the first test, and not to list the tests.
class JvmEnvironment : public testing::Environment {
    void SetUp() override {
        av_log_set_level(AV_LOG_QUIET);
        const HostJavaOptions options = {nullptr, nullptr, nullptr, 1};
        std::array<char, 256> error{};
        jvm = HostJava_start(&options, error.data(), error.size());
        ASSERT_NE(jvm, nullptr) << error.data();
    }
};

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new JvmEnvironment);

/// Decibels. On ARM, libyuv cuts the blue of BT.709.
#if defined(__arm__) || defined(__aarch64__)
constexpr double kGood = 36.0;
#else
constexpr double kGood = 40.0;
#endif

}  // namespace

JavaVM* Jvm() {
    return jvm;
}

TestStream ChangingStream() {
    TestStream stream;
    stream.picture = [](int index) {
        const auto level = static_cast<uint8_t>(30 + 37 * index % 190);
        return TestStream::Quarters{Yuv{level, 90, 160}, Yuv{60, level, 128}, Yuv{120, 128, level},
                                    Yuv{level, 128, 128}};
    };
    return stream;
}

DecodeTest::DecodeTest() {
    std::string name = (std::filesystem::temp_directory_path() / "decode.XXXXXX").string();
    directory_ = mkdtemp(name.data());
}

DecodeTest::~DecodeTest() {
    std::filesystem::remove_all(directory_);
}

std::unique_ptr<CompressedSource> DecodeTest::Open(const std::string& path, double startSeconds) {
    RendererSettings settings;
    settings.javaVM = Jvm();
    return std::make_unique<CompressedSource>(VideoFile(path, startSeconds), settings,
                                              [] { return nullptr; });
}

int DecodeTest::ExpectAsDecoded(const std::string& path, double startSeconds) {
    const auto player = Open(path, startSeconds);
    VideoReader reference(path, startSeconds);
    const PlainModel model(player->GetRenderer().FrameSize());
    int count = 0;
    while (const AVFrame* frame = reference.Next()) {
        EXPECT_TRUE(player->Next()) << "frame " << count;
        player->Draw(kCropped);
        EXPECT_GE(model.Psnr(*frame, player->GetRenderer().ReadBack()), kGood) << "frame " << count;
        ++count;
        if (HasFailure()) {
            return count;
        }
    }
    EXPECT_FALSE(player->Next()) << "a frame too many";
    EXPECT_EQ(player->Lost(), reference.Lost());
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
    return count;
}
