#pragma once

#include <cstdint>
#include <set>

#include "support/Libav.h"

/// Finds frames that a decoder drops without an error, in streams where each packet holds one
/// frame: a packet whose time never comes back with a frame is owed one.
class OwedFrames {
public:
    /// Other codecs have packets that are not meant to be shown; nothing is owed there.
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
