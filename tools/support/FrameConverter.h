#pragma once

#include <cstdint>
#include <vector>

#include "support/Image.h"
#include "support/Libav.h"

/// \p size, or the size of the frame if that is zero.
Size SizeOr(Size size, const AVFrame& frame);

/// Scales decoded frames of any format to tightly packed RGB or RGBA of one size, in the colors
/// that the tags of the frame mean.
class FrameConverter {
public:
    /// \param format AV_PIX_FMT_RGB24 or AV_PIX_FMT_RGBA
    /// \param flip turns the frames upside down
    FrameConverter(Size size, AVPixelFormat format, bool flip = false);

    /// The converted frame, valid until the next call. The caller may change it.
    uint8_t* Convert(const AVFrame& frame);

    /// Bytes of a converted frame.
    size_t ByteSize() const;

private:
    /// What a scaler is made for.
    struct Source {
        int width = 0;
        int height = 0;
        int format = AV_PIX_FMT_NONE;
        int colorSpace = AVCOL_SPC_UNSPECIFIED;
        bool fullRange = false;

        bool operator==(const Source& other) const;
    };

    static Source Describe(const AVFrame& frame);
    void Prepare(const Source& source);
    int RowBytes() const;

    Size size_;
    AVPixelFormat format_;
    bool flip_;
    Source source_;
    LibavPtr<SwsContext> scaler_;
    std::vector<uint8_t> pixels_;
};
