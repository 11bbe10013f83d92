#include "ClipDecoder.h"

#include <algorithm>
#include <stdexcept>

ClipDecoder::ClipDecoder(const Clip& clip, DecoderThreads threads) : clip_(clip) {
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_H264);
    decoder_.reset(avcodec_alloc_context3(codec));
    decoder_->thread_type = threads == DecoderThreads::kFrames ? FF_THREAD_FRAME : FF_THREAD_SLICE;
    decoder_->thread_count = 0;
    if (avcodec_open2(decoder_.get(), codec, nullptr) < 0) {
        throw std::runtime_error("libavcodec has no decoder");
    }
    delay_ = threads == DecoderThreads::kFrames ? decoder_->thread_count - 1 : 0;
    for (int i = 0; i < clip.reorderDepth + delay_; ++i) {
        decode();
    }
}

const AVFrame& ClipDecoder::next() {
    if (decode() < 0) {
        throw std::runtime_error("a unit of the clip gives no picture");
    }
    return *frame_;
}

int ClipDecoder::decode() {
    decoder_->has_b_frames = std::max(decoder_->has_b_frames, clip_.reorderDepth);
    avcodec_send_packet(decoder_.get(), clip_.units[unit_].get());
    unit_ = (unit_ + 1) % clip_.units.size();
    return avcodec_receive_frame(decoder_.get(), frame_.get());
}
