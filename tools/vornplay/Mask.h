#pragma once

#include <cstdint>
#include <string>

#include "support/FrameConverter.h"
#include "support/VideoReader.h"

/// The frames of a mask, as the renderer takes them: black where the picture is keyed out, and
/// otherwise of the alpha that the result shall have.
///
/// Made of the alpha of the file's pictures, or of their brightness where they have none. The last
/// frame is held.
class Mask {
public:
    /// \param size  zero for the file's own
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
