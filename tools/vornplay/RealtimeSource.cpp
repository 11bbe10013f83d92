#include "RealtimeSource.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <thread>
#include <utility>

RealtimeSource::RealtimeSource(VideoFile file, RendererSettings settings, MaskSource nextMask)
    : CompressedSource(std::move(file), std::move(settings), std::move(nextMask)) {
    Feed().SetStepping(false);
}

bool RealtimeSource::Next() {
    const int64_t time = pictures_ * Times().Clock().frame;
    const double seconds = Times().Clock().Seconds(time);
    if (pictures_++ == 0) {
        FeedUntil(0.0);
        start_ = Clock::now();
    }
    std::this_thread::sleep_until(start_ + std::chrono::duration_cast<Clock::duration>(
                                               std::chrono::duration<double>(seconds)));
    FeedUntil(seconds);
    if (Feed().WaitForFrame(0) == HOST_ENDED) {
        return false;
    }
    NoteTime(time);
    AskForMask();
    return true;
}

void RealtimeSource::Draw(const Shot& shot) {
    shown_ += GetRenderer().Draw(shot, nullptr, TakeMask()).newPicture ? 1 : 0;
}

void RealtimeSource::FeedUntil(double seconds) {
    constexpr int64_t kPatienceUs = 2000;
    while (!Feed().AtEnd() && Feed().NextTime() <= seconds) {
        const bool fed = Feed().FeedNext(kPatienceUs);
        if (!fed && Feed().AllRead()) {
            return;  // The end waits until the next draw makes room.
        }
        // Later frames may be predicted from those before the start, so none of these is dropped.
        if (!fed && Feed().NextTime() >= 0.0) {
            Feed().SkipNext();
        }
        if (Feed().AllRead()) {
            Feed().SetLockStep(true);
        }
    }
}

int64_t RealtimeSource::Shown(int64_t /*drawn*/) const {
    return std::min(shown_, Feed().Units());
}

std::string RealtimeSource::Summary(int64_t drawn) const {
    std::ostringstream text;
    text << Shown(drawn) << " frames shown, " << Dropped() << " dropped, " << drawn << " draws of "
         << std::fixed << std::setprecision(2) << GetRenderer().MillisecondsPerDraw() << " ms";
    return text.str();
}
