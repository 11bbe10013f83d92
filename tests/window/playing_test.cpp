// Pause, single frames, seeking and pace, for frames handed over as pixels and compressed.

#include <cmath>

#include "PlayerWindow.h"

namespace {

constexpr int kRate = 25;
constexpr int kFrames = 300;
constexpr Size kSize = {64, 48};

class PlayingTest : public PlayerWindow, public ::testing::WithParamInterface<std::string> {
protected:
    void MakeClip(int frames) const {
        WriteClip("in", frames, kSize);
        PlayWell("in/%04d.png --out clip.mp4");
    }

    /// Saves, and expects the frame of the time in the name of the file. \return that time
    double ExpectFrame() {
        const Saved saved = Save();
        const Rgba color = FrameColor(static_cast<int>(std::lround(saved.seconds * kRate)) + 1);
        const Rgba found = saved.image.Pixel(kSize.width / 2, kSize.height / 2);
        for (size_t i = 0; i < color.size(); ++i) {
            EXPECT_NEAR(found.at(i), color.at(i), 5) << "at " << saved.seconds;
        }
        return saved.seconds;
    }

    static std::string Clip() { return "clip.mp4 --path " + GetParam(); }
};

}  // namespace

TEST_P(PlayingTest, SeeksAndStepsToTheVeryFrame) {
    MakeClip(kFrames);
    Open(Clip());
    Key("space");
    const double start = ExpectFrame();
    EXPECT_NEAR(ExpectFrame(), start, 1e-6) << "it is paused";
    Key("period");
    EXPECT_NEAR(ExpectFrame(), start + 1.0 / kRate, 0.0011);
    Key("Right");
    const double later = ExpectFrame();
    EXPECT_NEAR(later, std::min(start + 5.04, (kFrames - 1.0) / kRate), 0.0011);
    Key("x");
    EXPECT_NEAR(ExpectFrame(), later, 1e-6) << "drawn again, not the next one";
    Key("k");
    EXPECT_NEAR(ExpectFrame(), later, 1e-6) << "opened again at the same frame";
    Key("Left");
    EXPECT_NEAR(ExpectFrame(), later - 5.0, 0.0011);
    Key("Left Left Left");
    EXPECT_EQ(ExpectFrame(), 0.0);
    Key("Right Right Right period");
    EXPECT_NEAR(ExpectFrame(), (kFrames - 1.0) / kRate, 0.0011) << "the last one stays";
    EXPECT_EQ(Quit(), 0) << Log();
}

TEST_P(PlayingTest, ShowsOrCountsEveryFrameAndBeginsAgain) {
    constexpr int kFew = 12;
    MakeClip(kFew);
    Open(Clip());
    while (ExpectFrame() < (kFew - 1.0) / kRate - 0.001 && !HasFailure()) {
    }
    Resize({320, 240});  // Large enough for the text.
    Key("period");
    EXPECT_TRUE(SeesText("The end. Space plays it again"));
    Key("space space Left");
    EXPECT_EQ(ExpectFrame(), 0.0);
    EXPECT_EQ(Quit(), 0);
}

TEST_P(PlayingTest, EndsWithTheWaylandCompositor) {
    MakeClip(kFrames);
    OpenOnWayland(Clip(), {320, 240}, 1);
    EXPECT_EQ(EndCompositor(), 0) << Log();
}

TEST_P(PlayingTest, MasksGoAlongWithTheirFrames) {
    MakeClip(200);
    WriteClip("mask", 200, {2, 2});
    for (const int number : {1, 126}) {
        WriteImage("mask/" + std::string(number == 1 ? "0001" : "0126") + ".png",
                   Solid({2, 2}, {0, 0, 0, 0}));
    }
    Open(Clip() + " --mask mask/%04d.png");
    Key("space Left Left");
    EXPECT_EQ(Save().image.Pixel(32, 24), kKeyedOut);
    Key("period");
    EXPECT_NE(Save().image.Pixel(32, 24), kKeyedOut);
    Key("Left Right");
    EXPECT_EQ(Save().image.Pixel(32, 24), kKeyedOut);
}

INSTANTIATE_TEST_SUITE_P(Both, PlayingTest, ::testing::Values("cpu", "decode"));
