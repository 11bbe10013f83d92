#include "support/FrameTimes.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace {

/// In frames. Stamps that step back further have begun again.
constexpr int64_t kLongestMistake = 16;

/// The unit in which both divide a second, if it is not too fine.
AVRational CommonTick(int64_t one, int64_t other) {
    constexpr int64_t kFinest = 10'000'000;
    constexpr int64_t kUsual = 90'000;
    const int64_t exact = std::lcm(one, other);
    return {1, static_cast<int>(exact > 0 && exact <= kFinest ? exact : kUsual)};
}

}  // namespace

FrameClock::FrameClock(AVRational stampUnit, AVRational frameRate)
    : tick(CommonTick(stampUnit.den, frameRate.num)) {
    stamp = av_rescale_q(1, stampUnit, tick);
    frame = std::max<int64_t>(1, av_rescale_q(1, av_inv_q(frameRate), tick));
}

FrameClock FrameClock::With(const FrameClock& other) const {
    FrameClock both = *this;
    both.tick = CommonTick(tick.den, other.tick.den);
    both.stamp = av_rescale_q(stamp, tick, both.tick);
    both.frame = std::max<int64_t>(1, av_rescale_q(frame, tick, both.tick));
    return both;
}

FrameTimes::FrameTimes(const AVStream& stream, AVRational frameRate, int64_t firstStamp)
    : stampUnit_(stream.time_base),
      clock_(stream.time_base, frameRate),
      firstStamp_(firstStamp),
      decodeOrder_(stream.codecpar->video_delay > 0) {}

void FrameTimes::Send(const AVPacket& packet) {
    if (sent_ == kNone && packet.pts == AV_NOPTS_VALUE && packet.dts != AV_NOPTS_VALUE) {
        begin_ = TicksOf(packet.dts);
    }
    // A stream whose frames are shown in another order than they are decoded in has frames whose
    // two stamps differ.
    decodeOrder_ = decodeOrder_ && packet.pts != AV_NOPTS_VALUE && packet.pts == packet.dts &&
                   packet.pts > sent_;
    sent_ = packet.pts;
    if (decodeOrder_ && (packet.flags & AV_PKT_FLAG_DISCARD) == 0) {
        sentStamps_.insert(packet.pts);
    }
}

/// The smallest stamp that no frame has yet, if the stamps are known to be in the wrong order.
int64_t FrameTimes::InOrder(int64_t stamp) {
    if (!decodeOrder_ || sentStamps_.empty()) {
        return stamp;
    }
    const int64_t smallest = *sentStamps_.begin();
    sentStamps_.erase(sentStamps_.begin());
    return smallest;
}

int64_t FrameTimes::TicksOf(int64_t stamp) const {
    return av_rescale_q(stamp - firstStamp_, stampUnit_, clock_.tick);
}

/// Stamps are rounded to the container's unit. A time within one unit of a frame's place at the
/// file's rate is put there.
int64_t FrameTimes::OnGrid(int64_t ticks) const {
    constexpr int64_t kFine = 4;
    const auto count = static_cast<double>(ticks) / static_cast<double>(clock_.frame);
    const int64_t place = std::llround(count) * clock_.frame;
    const bool near =
        std::abs(ticks - place) <= clock_.stamp && clock_.stamp * kFine <= clock_.frame;
    return near ? place : ticks;
}

/// A time that is not later than the last one. After a small step back the frame goes between its
/// neighbors; after a large one the clip goes on from here.
int64_t FrameTimes::Repair(int64_t time) {
    constexpr int64_t kSmall = 4;
    ++repaired_;
    if (last_ - time <= kLongestMistake * clock_.frame) {
        return last_ + std::max<int64_t>(1, clock_.frame / kSmall);
    }
    restarted_ = true;
    offset_ += last_ + clock_.frame - time;
    return last_ + clock_.frame;
}

/// Without a stamp, the frame comes one frame after the last one.
int64_t FrameTimes::Continued() {
    ++repaired_;
    return last_ == kNone ? begin_ : last_ + clock_.frame;
}

int64_t FrameTimes::Stamped(int64_t stamp) {
    const int64_t ticks = TicksOf(stamp);
    if (last_ == kNone) {
        return OnGrid(ticks);
    }
    if (ticks > last_ && ticks - last_ <= kLongestMistake * clock_.frame) {
        offset_ = 0;  // The stamps are back where they were.
    }
    const int64_t time = OnGrid(ticks) + offset_;
    const int64_t exact = ticks + offset_;
    return time > last_ ? time : exact > last_ ? exact : Repair(exact);
}

int64_t FrameTimes::Receive(int64_t stamp) {
    const int64_t inOrder = InOrder(stamp);
    repaired_ += inOrder != stamp ? 1 : 0;
    last_ = inOrder == AV_NOPTS_VALUE ? Continued() : Stamped(inOrder);
    return last_;
}
