#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/pixdesc.h>
}

#include <memory>

/// Owners of libavcodec's objects.
namespace av {

struct Free {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVBufferRef* buffer) const { av_buffer_unref(&buffer); }
};

using Frame = std::unique_ptr<AVFrame, Free>;
using Packet = std::unique_ptr<AVPacket, Free>;
using CodecContext = std::unique_ptr<AVCodecContext, Free>;
using Buffer = std::unique_ptr<AVBufferRef, Free>;

}  // namespace av
