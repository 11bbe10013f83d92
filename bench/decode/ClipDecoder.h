#pragma once

#include "Clip.h"

/// Decodes a clip over and over with libavcodec, with as many threads, used alike, as the
/// platform's decoder has.
class ClipDecoder {
public:
    /// \param clip outlives this.
    explicit ClipDecoder(const Clip& clip);

    /// Decodes one unit. \return the picture that it completes, valid until the next call.
    const AVFrame& next();

private:
    int decode();

    const Clip& clip_;
    size_t unit_ = 0;
    LibavPtr<AVCodecContext> decoder_;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
};
