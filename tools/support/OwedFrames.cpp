#include "support/OwedFrames.h"

#include <iterator>

OwedFrames::OwedFrames(AVCodecID codec)
    : counts_(codec == AV_CODEC_ID_H264 || codec == AV_CODEC_ID_HEVC ||
              codec == AV_CODEC_ID_MJPEG) {}

void OwedFrames::Send(const AVPacket& packet) {
    if (counts_ && packet.pts != AV_NOPTS_VALUE && (packet.flags & AV_PKT_FLAG_DISCARD) == 0) {
        times_.insert(packet.pts);
    }
}

void OwedFrames::Receive(const AVFrame& frame) {
    if (frame.interlaced_frame != 0) {
        counts_ = false;  // Its two fields may have come in two packets.
    }
    times_.erase(frame.pts);
}

int64_t OwedFrames::CountFrom(int64_t firstTick) const {
    return counts_ ? std::distance(times_.lower_bound(firstTick), times_.end()) : 0;
}
