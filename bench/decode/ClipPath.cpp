#include "ClipPath.h"

#include <algorithm>

namespace {

struct Progress {
    ClipPath* path;
    int given;
    int shown;
};

/// \return whether a picture was shown
bool Advance(Progress& progress, int count, int timeoutUs) {
    while (progress.given < count && progress.path->wantsUnit()) {
        progress.path->give();
        ++progress.given;
    }
    const bool shows = progress.path->show(timeoutUs);
    progress.shown += shows ? 1 : 0;
    return shows;
}

}  // namespace

void ClipPath::play(int count) {
    PlayAll({this}, count);
}

void ClipPath::PlayAll(const std::vector<ClipPath*>& paths, int count) {
    constexpr int kPauseUs = 1000;
    std::vector<Progress> playing;
    playing.reserve(paths.size());
    for (ClipPath* path : paths) {
        playing.push_back({path, 0, 0});
    }
    int timeoutUs = kPauseUs;
    while (!playing.empty()) {
        bool any = false;
        for (Progress& progress : playing) {
            any = Advance(progress, count, timeoutUs) || any;
            timeoutUs = 0;  // Waits for the first one only.
        }
        timeoutUs = any && playing.size() > 1 ? 0 : kPauseUs;
        playing.erase(std::remove_if(playing.begin(), playing.end(),
                                     [=](const Progress& one) { return one.shown == count; }),
                      playing.end());
    }
}
