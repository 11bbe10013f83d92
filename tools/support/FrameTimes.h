#pragma once

#include <cstdint>
#include <limits>
#include <set>

#include "support/Libav.h"

/// A clock that counts both the time stamps of a file and its frames without error.
struct FrameClock {
    FrameClock(AVRational stamp, AVRational frameRate);

    /// A clock that also counts what another one does, without error if that is possible.
    FrameClock With(const FrameClock& other) const;

    double Seconds(int64_t ticks) const { return static_cast<double>(ticks) * av_q2d(tick); }

    AVRational tick = {1, 25};  ///< In seconds.
    int64_t stamp = 1;          ///< Ticks of one unit of the time stamps; 0 if less than one.
    int64_t frame = 1;          ///< Ticks of one frame at the file's rate.
};

/// Gives each frame the time at which it is shown. Stamps that are missing, that step back, or that
/// a broken program gave out in the order of decoding are repaired.
class FrameTimes {
public:
    /// \param firstStamp the stamp of time 0
    FrameTimes(const AVStream& stream, AVRational frameRate, int64_t firstStamp);

    const FrameClock& Clock() const { return clock_; }

    /// Notes a packet that goes to the decoder.
    void Send(const AVPacket& packet);

    /// The time of the next frame that comes out, in ticks since time 0; later than that of the
    /// frame before. \param stamp the frame's, or AV_NOPTS_VALUE
    int64_t Receive(int64_t stamp);

    /// Frames without a usable stamp.
    int64_t Repaired() const { return repaired_; }
    /// Whether the stamps began again.
    bool Restarted() const { return restarted_; }

private:
    static constexpr int64_t kNone = std::numeric_limits<int64_t>::min();

    int64_t InOrder(int64_t stamp);
    int64_t TicksOf(int64_t stamp) const;
    int64_t OnGrid(int64_t ticks) const;
    int64_t Continued();
    int64_t Stamped(int64_t stamp);
    int64_t Repair(int64_t time);

    AVRational stampUnit_;
    FrameClock clock_;
    int64_t firstStamp_;
    bool decodeOrder_;                   ///< The stamps so far rise in the order of decoding.
    int64_t sent_ = kNone;               ///< The stamp of the last packet.
    int64_t begin_ = 0;                  ///< The time of a first frame without a stamp.
    std::multiset<int64_t> sentStamps_;  ///< Not yet given to a frame.
    int64_t last_ = kNone;               ///< The time of the last frame.
    int64_t offset_ = 0;                 ///< Added since the stamps began again.
    int64_t repaired_ = 0;
    bool restarted_ = false;
};
