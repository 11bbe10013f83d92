#include "window/hud/Figures.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr std::chrono::seconds kWindow(1);

}  // namespace

void Figures::NoteShown(Clock::time_point now, Milliseconds drawing, Milliseconds latency) {
    frames_.push_back({now, drawing, latency});
    while (frames_.front().shown + kWindow <= now) {
        frames_.pop_front();
    }
}

double Figures::FramesPerSecond(Clock::time_point now) const {
    const auto recent = std::count_if(frames_.begin(), frames_.end(), [now](const Frame& frame) {
        return frame.shown + kWindow > now;
    });
    return static_cast<double>(recent) / std::chrono::duration<double>(kWindow).count();
}

double Figures::Mean(Milliseconds Frame::*value) const {
    const auto sum = std::accumulate(
        frames_.begin(), frames_.end(), Milliseconds(0),
        [value](Milliseconds total, const Frame& frame) { return total + frame.*value; });
    return sum.count() / static_cast<double>(std::max<size_t>(1, frames_.size()));
}
