// The two ways from a file to the drawn frame, as the options choose them.

#include <cstdlib>

#include "Clip.h"
#include "PlayerFixture.h"

namespace {

class PathTest : public PlayerTest {
protected:
    PathTest() {
        WriteClip("in", 12, {64, 48});
        PlayWell("in/%04d.png --out clip.mp4");
    }
};

}  // namespace

TEST_F(PathTest, BothShowTheSameFramesUnderEveryOption) {
    WriteImage("sticker.png", Solid({2, 2}, {0, 0, 255, 255}));
    WriteImage("mask/1.png", Solid({2, 2}, {255, 255, 255, 90}));
    WriteImage("mask/2.png", Solid({2, 2}, {0, 0, 0, 0}));
    WriteImage("mask/3.png", Solid({2, 2}, {255, 255, 255, 255}));
    for (const std::string options :
         {"", "--mirror", "--start 0.2", "--frames 3", "--mask mask/%d.png",
          "--sticker sticker.png --at 32,40", "--view-to 0.5,0,1,0 --clear 9,8,7,255"}) {
        std::filesystem::remove_all(Path("cpu"));
        std::filesystem::remove_all(Path("decode"));
        PlayWell("clip.mp4 --path cpu --out cpu/%d.png " + options);
        PlayWell("clip.mp4 --path decode --out decode/%d.png " + options);
        const std::vector<Image> raw = ReadFrames(Path("cpu/%d.png"));
        const std::vector<Image> decoded = ReadFrames(Path("decode/%d.png"));
        ASSERT_EQ(raw.size(), decoded.size()) << options;
        EXPECT_GE(raw.size(), 3U) << options;
        for (size_t number = 0; number < raw.size(); ++number) {
            const std::vector<uint8_t>& pixels = raw[number].pixels;
            size_t far = 0;
            for (size_t i = 0; i < pixels.size(); ++i) {
                far += std::abs(pixels[i] - decoded[number].pixels.at(i)) > 4 ? 1 : 0;
            }
            // Edges of the picture are smooth in the one and sharp in the other.
            EXPECT_LT(far, pixels.size() / 50) << options << ", frame " << number;
        }
    }
}

TEST_F(PathTest, WithoutAJavaMachineOnlyPixelsGoOver) {
    const std::string player = "JAVA_HOME=/nowhere " VORNPLAY " clip.mp4 ";
    RunResult result = Run(player, "--path decode --out out.png");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors, "vornplay: clip.mp4: no JVM in /nowhere\n");
    EXPECT_EQ(Play("clip.mp4 --no-window --path decode --platform /nowhere").status, 2);
    EXPECT_FALSE(std::filesystem::exists(Path("out.png")));

    result = Run(player, "--quiet --out out.png");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    result = Run(player, "--no-window --verbose");
    EXPECT_NE(result.errors.find("not decoded by the platform: no JVM"), std::string::npos);
}

TEST_F(PathTest, OnlyVideoOfItsOwnSizeGoesOverCompressedUnasked) {
    for (const std::string arguments : {"in/0001.png", "clip.mp4 --size 32x24", "clip.mp4 --rgb"}) {
        EXPECT_NE(
            Play(arguments + " --no-window --verbose").errors.find("not decoded by the platform"),
            std::string::npos)
            << arguments;
    }
    EXPECT_EQ(Play("in/0001.png --no-window --path decode").status, 2);
    EXPECT_EQ(Play("clip.mp4 --no-window --rgb --path decode").status, 2);
    EXPECT_EQ(Play("clip.mp4 --realtime --path cpu").status, 2);
    PlayWell("clip.mp4 --size 32x24 --path decode --out small.png");
    EXPECT_EQ(Read("small.png").size.width, 32);
}
