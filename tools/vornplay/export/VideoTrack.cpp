#include "VideoTrack.h"

#include <algorithm>

#include "support/ToolError.h"

extern "C" {
#include <libavutil/opt.h>
}

namespace {

const AVCodec& FindEncoder(const Muxer& muxer, const VideoCoding& coding) {
    const AVCodec* codec = coding.encoder != nullptr ? avcodec_find_encoder_by_name(coding.encoder)
                                                     : avcodec_find_encoder(coding.codec);
    if (codec == nullptr) {
        throw ToolError(muxer.Target() + ": libavcodec has no encoder for " +
                        avcodec_get_name(coding.codec));
    }
    return *codec;
}

void Tag(AVCodecContext& encoder, const ColorTags& tags) {
    encoder.color_range = tags.range;
    encoder.colorspace = tags.matrix;
    encoder.color_primaries = tags.primaries;
    encoder.color_trc = tags.transfer;
}

}  // namespace

VideoTrack::VideoTrack(Muxer& muxer, const VideoCoding& coding, Size size, AVRational frameRate,
                       const FrameClock& clock, const ColorTags& tags)
    : muxer_(muxer), clock_(clock) {
    const AVCodec& codec = FindEncoder(muxer, coding);
    encoder_.reset(avcodec_alloc_context3(&codec));
    encoder_->width = size.width;
    encoder_->height = size.height;
    encoder_->sample_aspect_ratio = {1, 1};
    encoder_->pix_fmt = coding.format;
    encoder_->time_base = clock.tick;
    encoder_->ticks_per_frame = static_cast<int>(clock.frame);
    encoder_->framerate = frameRate;
    encoder_->thread_count = 0;
    encoder_->flags |= muxer.HasGlobalHeader() ? AV_CODEC_FLAG_GLOBAL_HEADER : 0;
    Tag(*encoder_, tags);
    for (const auto& [name, value] : coding.options) {
        av_opt_set(encoder_->priv_data, name.c_str(), value.c_str(), 0);
    }
    muxer_.Check(avcodec_open2(encoder_.get(), &codec, nullptr));
    stream_ = &muxer_.AddEncoded(*encoder_);
}

void VideoTrack::SetDisplayMatrix(const int32_t* matrix) {
    constexpr size_t kCount = 9;
    uint8_t* data =
        av_stream_new_side_data(stream_, AV_PKT_DATA_DISPLAYMATRIX, kCount * sizeof(*matrix));
    muxer_.Check(data != nullptr ? 0 : AVERROR(ENOMEM));
    std::copy_n(matrix, kCount, reinterpret_cast<int32_t*>(data));
}

void VideoTrack::Write(AVFrame& picture, int64_t time) {
    picture.pts = time;
    end_ = time + clock_.frame;
    Encode(&picture);
}

void VideoTrack::Encode(const AVFrame* picture) {
    muxer_.Check(avcodec_send_frame(encoder_.get(), picture));
    for (;;) {
        const int result = avcodec_receive_packet(encoder_.get(), packet_.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) {
            return;
        }
        muxer_.Check(result);
        packet_->duration = clock_.frame;
        muxer_.Write(*packet_, *stream_, encoder_->time_base);
    }
}
