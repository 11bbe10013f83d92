#include "Colors.h"

#include <array>

#include "support/ToolError.h"

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace {

bool HasFlag(int format, uint64_t flags) {
    const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format));
    return description != nullptr && (description->flags & flags) != 0;
}

bool IsRgb(int format) {
    return HasFlag(format, AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL);
}

/// Only a plain matrix can be kept.
bool IsMatrix(AVColorSpace space) {
    return space == AVCOL_SPC_BT709 || space == AVCOL_SPC_FCC || space == AVCOL_SPC_BT470BG ||
           space == AVCOL_SPC_SMPTE170M || space == AVCOL_SPC_SMPTE240M ||
           space == AVCOL_SPC_BT2020_NCL;
}

ColorTags UsualTags(Size size) {
    if (UsualColorSpace(size.width, size.height) == AVCOL_SPC_BT709) {
        return {AVCOL_RANGE_MPEG, AVCOL_SPC_BT709, AVCOL_PRI_BT709, AVCOL_TRC_BT709};
    }
    return {AVCOL_RANGE_MPEG, AVCOL_SPC_SMPTE170M, AVCOL_PRI_SMPTE170M, AVCOL_TRC_SMPTE170M};
}

}  // namespace

bool HasAlpha(AVPixelFormat format) {
    return HasFlag(format, AV_PIX_FMT_FLAG_ALPHA);
}

ColorTags TagsOf(const AVCodecParameters& video, Size size, AVPixelFormat format) {
    if (IsRgb(format)) {
        return {};
    }
    ColorTags tags = UsualTags(size);
    if (video.format == AV_PIX_FMT_NONE || IsRgb(video.format)) {
        return tags;
    }
    if (HasFullRange(video.format, video.color_range)) {
        tags.range = AVCOL_RANGE_JPEG;
    }
    if (IsMatrix(video.color_space)) {
        tags.matrix = video.color_space;
    }
    if (video.color_primaries != AVCOL_PRI_UNSPECIFIED) {
        tags.primaries = video.color_primaries;
    }
    if (video.color_trc != AVCOL_TRC_UNSPECIFIED) {
        tags.transfer = video.color_trc;
    }
    return tags;
}

ColorConverter::ColorConverter(const AVCodecContext& encoder, AVPixelFormat source)
    : sourceRowBytes_(av_image_get_linesize(source, encoder.width, 0)) {
    constexpr int kFlags = SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP;
    constexpr int kUnchanged = 1 << 16;
    scaler_.reset(sws_getContext(encoder.width, encoder.height, source, encoder.width,
                                 encoder.height, encoder.pix_fmt, kFlags, nullptr, nullptr,
                                 nullptr));
    if (scaler_ == nullptr) {
        throw ToolError("frames of this size cannot be converted");
    }
    sws_setColorspaceDetails(scaler_.get(), sws_getCoefficients(SWS_CS_DEFAULT), 1,
                             sws_getCoefficients(encoder.colorspace),
                             encoder.color_range == AVCOL_RANGE_JPEG ? 1 : 0, 0, kUnchanged,
                             kUnchanged);
}

void ColorConverter::Convert(const uint8_t* pixels, AVFrame& picture) const {
    const std::array<const uint8_t*, 4> planes = {pixels};
    const std::array<int, 4> strides = {sourceRowBytes_};
    sws_scale(scaler_.get(), planes.data(), strides.data(), 0, picture.height, picture.data,
              picture.linesize);
}
