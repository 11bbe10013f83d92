// Playing at the clip's pace, up to the end.

#include <cstdio>

#include "Clip.h"
#include "PlayerFixture.h"

namespace {

struct Counts {
    int shown = -1;
    int dropped = -1;
    int draws = -1;
};

class RealtimeTest : public PlayerTest {
protected:
    /// Plays in.mkv, of which so many frames are wanted.
    Counts PlayInTime(int frames, const std::string& options) const {
        const RunResult result = Play("in.mkv --realtime " + options);
        EXPECT_EQ(result.status, 0) << result.errors;
        Counts counts;
        // NOLINTNEXTLINE(cert-err34-c): what sscanf cannot read stays -1.
        (void)std::sscanf(result.errors.c_str(), "%d frames shown, %d dropped, %d draws",
                          &counts.shown, &counts.dropped, &counts.draws);
        EXPECT_EQ(counts.shown + counts.dropped, frames) << result.errors;
        EXPECT_GT(counts.shown, 0);
        return counts;
    }
};

}  // namespace

// A busy machine may be late, so each of these has several attempts.
constexpr int kAttempts = 5;

// The decoder holds two frames back until the end. They must not come at once.
TEST_F(RealtimeTest, ShowsTheLastFramesOneByOne) {
    ClipKind kind;
    kind.frames = 3;
    MakeClip(Path("in.mkv"), kind);
    int shown = 0;
    for (int i = 0; i < kAttempts && shown < kind.frames; ++i) {
        shown = PlayInTime(kind.frames, "").shown;
    }
    EXPECT_EQ(shown, kind.frames);
}

// The frames between the key frame and the start are decoded, but take no time.
TEST_F(RealtimeTest, EndsWithTheClipAfterAStart) {
    ClipKind kind;
    kind.frames = 24;  // After so few there is no second key frame.
    MakeClip(Path("in.mkv"), kind);
    int draws = kind.frames;
    for (int i = 0; i < kAttempts && draws >= kind.frames; ++i) {
        draws = PlayInTime(4, "--start 0.8").draws;
    }
    EXPECT_LT(draws, kind.frames);
}
