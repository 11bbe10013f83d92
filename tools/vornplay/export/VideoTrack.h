#pragma once

#include <string>

#include "Colors.h"
#include "Muxer.h"
#include "support/FrameTimes.h"

/// How the pictures of a track are compressed.
struct VideoCoding {
    AVCodecID codec;
    const char* encoder;  ///< libavcodec's name of it; null for any.
    AVPixelFormat format;
    LibavOptions options;  ///< The encoder ignores those that it does not know.
};

/// The video of a file.
class VideoTrack {
public:
    /// \param frameRate the usual one \param clock in whose ticks pictures come. \throws ToolError
    VideoTrack(Muxer& muxer, const VideoCoding& coding, Size size, AVRational frameRate,
               const FrameClock& clock, const ColorTags& tags);

    /// Players turn the pictures by this, if the container keeps it. \param matrix 9 numbers
    void SetDisplayMatrix(const int32_t* matrix);

    const AVCodecContext& Encoder() const { return *encoder_; }

    /// Compresses the next picture. \param time when it is shown. \throws ToolError
    void Write(AVFrame& picture, int64_t time);
    /// Writes what the encoder still holds. \throws ToolError
    void Finish() { Encode(nullptr); }

    /// How long the pictures so far are shown.
    double Seconds() const { return clock_.Seconds(end_); }

private:
    void Encode(const AVFrame* picture);

    Muxer& muxer_;
    LibavPtr<AVCodecContext> encoder_;
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
    AVStream* stream_ = nullptr;
    FrameClock clock_;
    int64_t end_ = 0;  ///< Of the last picture.
};
