#include "Picture.h"

namespace {

/// libavcodec's layouts for JPEG differ from the others in their range only.
AVPixelFormat WithoutRange(AVPixelFormat layout) {
    switch (layout) {
        case AV_PIX_FMT_YUVJ420P: return AV_PIX_FMT_YUV420P;
        case AV_PIX_FMT_YUVJ422P: return AV_PIX_FMT_YUV422P;
        case AV_PIX_FMT_YUVJ444P: return AV_PIX_FMT_YUV444P;
        default: return layout;
    }
}

/// For streams that state no matrix: that of television up to its size, and of HD above.
ColorMatrix CustomaryMatrix(int width, int height) {
    constexpr int kTelevisionWidth = 720;
    constexpr int kTelevisionHeight = 576;
    const bool television = (width <= kTelevisionWidth && height <= kTelevisionHeight) ||
                            (width <= kTelevisionHeight && height <= kTelevisionWidth);
    return television ? ColorMatrix::kBt601 : ColorMatrix::kBt709;
}

ColorMatrix MatrixOf(const AVFrame& frame) {
    switch (frame.colorspace) {
        case AVCOL_SPC_BT709: return ColorMatrix::kBt709;
        case AVCOL_SPC_FCC:
        case AVCOL_SPC_BT470BG:
        case AVCOL_SPC_SMPTE170M: return ColorMatrix::kBt601;
        case AVCOL_SPC_BT2020_NCL:
        case AVCOL_SPC_BT2020_CL: return ColorMatrix::kBt2020;
        default: return CustomaryMatrix(frame.width, frame.height);
    }
}

int RoundedUp(int size, int unit) {
    return (size + unit - 1) / unit * unit;
}

}  // namespace

bool PictureFormat::operator==(const PictureFormat& other) const {
    return width == other.width && height == other.height && bufferWidth == other.bufferWidth &&
           bufferHeight == other.bufferHeight && layout == other.layout && matrix == other.matrix &&
           fullRange == other.fullRange;
}

PictureFormat FormatOf(const AVFrame& frame, bool padded) {
    constexpr int kColumns = 64;
    constexpr int kRows = 16;
    const auto layout = static_cast<AVPixelFormat>(frame.format);
    PictureFormat format;
    format.width = frame.width;
    format.height = frame.height;
    format.bufferWidth = RoundedUp(frame.width, padded ? kColumns : 1);
    format.bufferHeight = RoundedUp(frame.height, padded ? kRows : 1);
    format.layout = WithoutRange(layout);
    format.matrix = MatrixOf(frame);
    format.fullRange = frame.color_range == AVCOL_RANGE_JPEG || format.layout != layout;
    return format;
}

size_t PlanarSize(const PictureFormat& format) {
    const auto width = static_cast<size_t>(format.bufferWidth);
    const auto height = static_cast<size_t>(format.bufferHeight);
    return width * height + 2 * ((width + 1) / 2) * ((height + 1) / 2);
}
