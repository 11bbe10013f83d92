#pragma once

#include "Clip.h"

/// Decodes a clip repeatedly with libavcodec. Number and kind of threads are those of the
/// platform's decoder.
class ClipDecoder {
public:
    /// \param clip must outlive this object.
    explicit ClipDecoder(const Clip& clip);

    /// Decodes one unit. \return the picture, valid until the next call.
    const AVFrame& next();

private:
    int decode();

    const Clip& clip_;
    size_t unit_ = 0;
    LibavPtr<AVCodecContext> decoder_;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
};
