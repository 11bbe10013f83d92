#pragma once

#include <cstdint>
#include <set>

#include "support/Libav.h"

/// Finds frames that a decoder drops without an error, in streams in which each packet holds one
/// frame. A frame is owed if the time of its packet never comes out with a frame.
class OwedFrames {
public:
    /// Counts only for codecs of which each packet gives a frame to show.
    explicit OwedFrames(AVCodecID codec);

    void Send(const AVPacket& packet);
    void Receive(const AVFrame& frame);

    /// How many frames of \p firstTick or later were not received. Final once the decoder is
    /// drained.
    int64_t CountFrom(int64_t firstTick) const;

private:
    bool counts_;
    std::set<int64_t> times_;
};
