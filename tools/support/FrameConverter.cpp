#include "support/FrameConverter.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <array>
#include <tuple>

#include "support/ToolError.h"

namespace {

/// The scaler writes whole vector registers, also past the end of the last row.
constexpr size_t kOverrun = 64;

/// Where the rows of a frame are.
struct Rows {
    std::array<const uint8_t*, 4> planes;
    std::array<int, 4> strides;
};

Rows RowsOf(const AVFrame& frame) {
    Rows rows{};
    std::copy_n(frame.data, rows.planes.size(), rows.planes.begin());
    std::copy_n(frame.linesize, rows.strides.size(), rows.strides.begin());
    return rows;
}

/// From the last row to the first.
void Flip(Rows& rows, const AVFrame& frame) {
    const AVPixFmtDescriptor& format =
        *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    const bool palette = (format.flags & AV_PIX_FMT_FLAG_PAL) != 0;
    for (size_t i = 0; i < (palette ? 1 : rows.planes.size()); ++i) {
        if (rows.planes.at(i) == nullptr) {
            continue;
        }
        const bool chroma = i == 1 || i == 2;
        const int count = AV_CEIL_RSHIFT(frame.height, chroma ? format.log2_chroma_h : 0);
        rows.planes.at(i) += static_cast<ptrdiff_t>(count - 1) * rows.strides.at(i);
        rows.strides.at(i) = -rows.strides.at(i);
    }
}

}  // namespace

Size SizeOr(Size size, const AVFrame& frame) {
    return size.width > 0 ? size : Size{frame.width, frame.height};
}

bool FrameConverter::Source::operator==(const Source& other) const {
    return std::tie(width, height, format, colorSpace, fullRange) ==
           std::tie(other.width, other.height, other.format, other.colorSpace, other.fullRange);
}

FrameConverter::FrameConverter(Size size, AVPixelFormat format, bool flip)
    : size_(size), format_(format), flip_(flip) {
    pixels_.resize(ByteSize() + kOverrun);
}

int FrameConverter::RowBytes() const {
    return size_.width * (format_ == AV_PIX_FMT_RGBA ? 4 : 3);
}

size_t FrameConverter::ByteSize() const {
    return static_cast<size_t>(RowBytes()) * static_cast<size_t>(size_.height);
}

FrameConverter::Source FrameConverter::Describe(const AVFrame& frame) {
    const bool untagged =
        frame.colorspace == AVCOL_SPC_UNSPECIFIED || frame.colorspace == AVCOL_SPC_RGB;
    return {frame.width, frame.height, frame.format,
            untagged ? UsualColorSpace(frame.width, frame.height) : frame.colorspace,
            HasFullRange(frame.format, frame.color_range)};
}

void FrameConverter::Prepare(const Source& source) {
    // The switches take the exact path instead of the fast one, chroma at full width included.
    constexpr int kFlags = SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
    constexpr int kUnchanged = 1 << 16;
    scaler_.reset(sws_getContext(source.width, source.height,
                                 static_cast<AVPixelFormat>(source.format), size_.width,
                                 size_.height, format_, kFlags, nullptr, nullptr, nullptr));
    if (scaler_ == nullptr) {
        throw ToolError("a picture of this format or size cannot be converted");
    }
    sws_setColorspaceDetails(scaler_.get(), sws_getCoefficients(source.colorSpace),
                             source.fullRange ? 1 : 0, sws_getCoefficients(SWS_CS_DEFAULT), 1, 0,
                             kUnchanged, kUnchanged);
    source_ = source;
}

uint8_t* FrameConverter::Convert(const AVFrame& frame) {
    const Source source = Describe(frame);
    if (scaler_ == nullptr || !(source == source_)) {
        Prepare(source);
    }
    const std::array<uint8_t*, 4> planes = {pixels_.data()};
    const std::array<int, 4> strides = {RowBytes()};
    Rows rows = RowsOf(frame);
    if (flip_) {
        Flip(rows, frame);
    }
    sws_scale(scaler_.get(), rows.planes.data(), rows.strides.data(), 0, frame.height,
              planes.data(), strides.data());
    return pixels_.data();
}
