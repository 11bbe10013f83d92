#include "RealtimePath.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <thread>

bool RealtimePath::DrawNext(const View& view, bool /*last*/) {
    const double seconds = static_cast<double>(ticks_) / av_q2d(File().FrameRate());
    if (ticks_++ == 0) {
        FeedUntil(0.0);
        start_ = Clock::now();
    }
    std::this_thread::sleep_until(start_ + std::chrono::duration_cast<Clock::duration>(
                                               std::chrono::duration<double>(seconds)));
    FeedUntil(seconds);
    if (Feed().WaitForFrame(frames_.delivered, 0, frames_) == HOST_ENDED) {
        return false;
    }
    DrawNew(view);
    return true;
}

void RealtimePath::FeedUntil(double seconds) {
    constexpr int64_t kPatienceUs = 2000;
    constexpr int64_t kNoEnd = -1;
    while (!Feed().AtEnd() && Feed().NextTime() <= seconds) {
        // What lies before the start is not for show, but what follows may build on it.
        Feed().FeedNext(Feed().NextTime() < 0.0 ? kNoEnd : kPatienceUs);
        if (Feed().AtEnd()) {
            Feed().SetLockStep(true);
        }
    }
}

int64_t RealtimePath::Shown(int64_t /*drawn*/) const {
    return std::min(frames_.latched, Feed().Units());
}

std::string RealtimePath::Summary(int64_t drawn) const {
    std::ostringstream text;
    text << Shown(drawn) << " frames shown, " << Dropped() << " dropped, " << drawn << " draws of "
         << std::fixed << std::setprecision(2) << Target().MillisecondsPerDraw() << " ms";
    return text.str();
}
