#pragma once

#include <cstdint>
#include <string>

#include "support/FrameConverter.h"
#include "support/VideoReader.h"

/// The masks of a run, read from a file, as the renderer takes them: black pixels key the picture
/// out; elsewhere the alpha of the mask becomes the alpha of the result.
///
/// They are made from the alpha of the file's pictures, or from their brightness if they have no
/// alpha. The last mask is repeated.
class Mask {
public:
    /// \param size  zero: the file's
    /// \param first the number of the frame to begin with
    /// \throws ToolError
    Mask(const std::string& path, Size size, bool rgb, int64_t first = 0);

    /// The mask for the next frame, valid until the next call.
    uint8_t* Next();

    Size FrameSize() const { return size_; }
    const VideoReader& Reader() const { return reader_; }

private:
    uint8_t* Keep(const AVFrame& frame);

    VideoReader reader_;
    const AVFrame& first_;
    Size size_;
    FrameConverter converter_;
    bool rgb_;
    bool started_ = false;
    uint8_t* pixels_ = nullptr;
};
