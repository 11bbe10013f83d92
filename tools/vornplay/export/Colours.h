#pragma once

#include "support/Image.h"
#include "support/Libav.h"

/// What the numbers of a YUV picture mean.
struct ColourTags {
    AVColorRange range = AVCOL_RANGE_UNSPECIFIED;
    AVColorSpace matrix = AVCOL_SPC_UNSPECIFIED;
    AVColorPrimaries primaries = AVCOL_PRI_UNSPECIFIED;
    AVColorTransferCharacteristic transfer = AVCOL_TRC_UNSPECIFIED;
};

/// The tags of video, to be kept. Where it has none, those of one of the two usual sets, as players
/// take it.
ColourTags TagsOf(const AVCodecParameters& video, Size size);

/// Turns drawn frames into the pictures of an encoder, in the encoder's colours.
class ColourConverter {
public:
    /// \param source the frames' format, one plane of full range RGB. \throws ToolError
    ColourConverter(const AVCodecContext& encoder, AVPixelFormat source);

    void Convert(const uint8_t* pixels, AVFrame& picture) const;

private:
    int sourceRowBytes_;
    LibavPtr<SwsContext> scaler_;
};
