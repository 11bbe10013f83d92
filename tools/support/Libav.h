#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <memory>
#include <string>

struct LibavDeleter {
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

template <typename T>
using LibavPtr = std::unique_ptr<T, LibavDeleter>;

/// libav's text for an error code.
std::string LibavMessage(int code);

/// The color matrix of video that does not name one: BT.709 from HD sizes on, else BT.601.
AVColorSpace UsualColorSpace(int width, int height);

/// Whether pictures of this format and tag use all values; some formats say so only by their name.
bool HasFullRange(int format, AVColorRange range);
