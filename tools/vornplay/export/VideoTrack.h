#pragma once

#include <string>

#include "Colors.h"
#include "Muxer.h"

/// How the pictures of a track are compressed.
struct VideoCoding {
    AVCodecID codec;
    const char* encoder;  ///< libavcodec's name of it; null for any.
    AVPixelFormat format;
    LibavOptions options;  ///< The encoder ignores those that it does not know.
};

/// The video of a file, at a constant frame rate.
class VideoTrack {
public:
    /// \throws ToolError
    VideoTrack(Muxer& muxer, const VideoCoding& coding, Size size, AVRational frameRate,
               const ColorTags& tags);

    const AVCodecContext& Encoder() const { return *encoder_; }

    /// Compresses the next picture. \throws ToolError
    void Write(AVFrame& picture);
    /// Writes what the encoder still holds. \throws ToolError
    void Finish() { Encode(nullptr); }

    /// How long the pictures so far are shown.
    double Seconds() const { return static_cast<double>(pictures_) * av_q2d(encoder_->time_base); }

private:
    void Encode(const AVFrame* picture);

    Muxer& muxer_;
    LibavPtr<AVCodecContext> encoder_;
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
    AVStream* stream_ = nullptr;
    int64_t pictures_ = 0;
};
