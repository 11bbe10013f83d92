// Playing at the clip's pace, up to the end.

#include <cstdio>

#include "Clip.h"
#include "PlayerFixture.h"

using RealtimeTest = PlayerTest;

// The decoder holds two frames back until the end. They must not come at once.
TEST_F(RealtimeTest, ShowsTheLastFramesOneByOne) {
    constexpr int kAttempts = 5;  // A busy machine may be late.
    ClipKind kind;
    kind.frames = 3;
    MakeClip(Path("in.mkv"), kind);
    int shown = 0;
    for (int i = 0; i < kAttempts && shown < kind.frames; ++i) {
        const RunResult result = Play("in.mkv --realtime");
        EXPECT_EQ(result.status, 0) << result.errors;
        int dropped = -1;
        // NOLINTNEXTLINE(cert-err34-c): what sscanf cannot read stays as it was.
        (void)std::sscanf(result.errors.c_str(), "%d frames shown, %d dropped", &shown, &dropped);
        EXPECT_EQ(shown + dropped, kind.frames) << result.errors;
    }
    EXPECT_EQ(shown, kind.frames);
}
