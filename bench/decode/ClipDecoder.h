#pragma once

#include "Clip.h"

enum class DecoderThreads {
    kSlices,  ///< As the platform's decoder.
    kFrames,  ///< Each of them delays pictures by one.
};

/// Decodes a clip repeatedly with libavcodec, with a thread for each core.
class ClipDecoder {
public:
    /// \param clip must outlive this object.
    explicit ClipDecoder(const Clip& clip, DecoderThreads threads = DecoderThreads::kSlices);

    /// Decodes a unit, the delay later. \return the picture, valid until the next call.
    const AVFrame& next();

    /// Pictures that its threads hold back.
    int delay() const { return delay_; }

private:
    int decode();

    const Clip& clip_;
    size_t unit_ = 0;
    int delay_ = 0;
    LibavPtr<AVCodecContext> decoder_;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
};
