#pragma once

#include "support/Image.h"
#include "support/Libav.h"

/// What the numbers of a YUV picture mean.
struct ColorTags {
    AVColorRange range = AVCOL_RANGE_UNSPECIFIED;
    AVColorSpace matrix = AVCOL_SPC_UNSPECIFIED;
    AVColorPrimaries primaries = AVCOL_PRI_UNSPECIFIED;
    AVColorTransferCharacteristic transfer = AVCOL_TRC_UNSPECIFIED;
};

/// Whether pixels of this format have alpha.
bool HasAlpha(AVPixelFormat format);

/// The tags of a video, for pictures of this size and format. Tags that the video lacks are those
/// that players assume. There are none for RGB.
ColorTags TagsOf(const AVCodecParameters& video, Size size, AVPixelFormat format);

/// Turns drawn frames into the pictures of an encoder, in the encoder's colors.
class ColorConverter {
public:
    /// \param source the frames' format, one plane of full range RGB. \throws ToolError
    ColorConverter(const AVCodecContext& encoder, AVPixelFormat source);

    void Convert(const uint8_t* pixels, AVFrame& picture) const;

private:
    int sourceRowBytes_;
    LibavPtr<SwsContext> scaler_;
};
