#include <libyuv/convert.h>
#include <libyuv/convert_argb.h>
#include <libyuv/row.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "Picture.h"

namespace {

/// libyuv limits the factor from U to blue to 2, which makes blue of limited range up to 13 levels
/// too dark. Its code for x86 also accepts the correct factor.
libyuv::YuvConstants WithFullBlue(libyuv::YuvConstants constants, [[maybe_unused]] double factor) {
#if defined(__x86_64__) || defined(__i386__)
    constexpr int kUnit = 64;
    constexpr uint8_t kCut = 2 * kUnit;
    const auto exact = static_cast<uint8_t>(std::lround(factor * kUnit));
    // Red's place holds blue after the exchange.
    std::replace(std::begin(constants.kUVToR), std::end(constants.kUVToR), kCut, exact);
#endif
    return constants;
}

// libyuv's vector code needs the alignment.
alignas(32) const libyuv::YuvConstants kBt601 = WithFullBlue(libyuv::kYvuI601Constants, 2.018);
alignas(32) const libyuv::YuvConstants kBt709 = WithFullBlue(libyuv::kYvuH709Constants, 2.112);
alignas(32) const libyuv::YuvConstants kBt2020 = WithFullBlue(libyuv::kYvu2020Constants, 2.142);

/// libyuv writes B, G, R. Exchanging U and V, in planes and constants, makes that R, G, B.
const libyuv::YuvConstants* ExchangedConstants(ColorMatrix matrix, bool fullRange) {
    switch (matrix) {
        case ColorMatrix::kBt709: return fullRange ? &libyuv::kYvuF709Constants : &kBt709;
        case ColorMatrix::kBt2020: return fullRange ? &libyuv::kYvuV2020Constants : &kBt2020;
        default: return fullRange ? &libyuv::kYvuJPEGConstants : &kBt601;
    }
}

using ToRgba = int (*)(const uint8_t* y, int yStride, const uint8_t* u, int uStride,
                       const uint8_t* v, int vStride, uint8_t* rgba, int stride,
                       const libyuv::YuvConstants* constants, int width, int height);
using ToPlanar = int (*)(const uint8_t* y, int yStride, const uint8_t* u, int uStride,
                         const uint8_t* v, int vStride, uint8_t* toY, int toYStride, uint8_t* toU,
                         int toUStride, uint8_t* toV, int toVStride, int width, int height);

struct Conversion {
    AVPixelFormat layout;
    ToRgba toRgba;
    ToPlanar toPlanar;
};

int GrayToRgba(const uint8_t* y, int yStride, const uint8_t* /*u*/, int /*uStride*/,
               const uint8_t* /*v*/, int /*vStride*/, uint8_t* rgba, int stride,
               const libyuv::YuvConstants* constants, int width, int height) {
    return libyuv::I400ToARGBMatrix(y, yStride, rgba, stride, constants, width, height);
}

int GrayToPlanar(const uint8_t* y, int yStride, const uint8_t* /*u*/, int /*uStride*/,
                 const uint8_t* /*v*/, int /*vStride*/, uint8_t* toY, int toYStride, uint8_t* toU,
                 int toUStride, uint8_t* toV, int toVStride, int width, int height) {
    return libyuv::I400ToI420(y, yStride, toY, toYStride, toU, toUStride, toV, toVStride, width,
                              height);
}

constexpr std::array<Conversion, 4> kConversions = {{
    {AV_PIX_FMT_YUV420P, libyuv::I420ToARGBMatrix, libyuv::I420Copy},
    {AV_PIX_FMT_YUV422P, libyuv::I422ToARGBMatrix, libyuv::I422ToI420},
    {AV_PIX_FMT_YUV444P, libyuv::I444ToARGBMatrix, libyuv::I444ToI420},
    {AV_PIX_FMT_GRAY8, GrayToRgba, GrayToPlanar},
}};

const Conversion* Find(AVPixelFormat layout) {
    const auto* found =
        std::find_if(kConversions.begin(), kConversions.end(),
                     [layout](const Conversion& known) { return known.layout == layout; });
    return found != kConversions.end() ? found : nullptr;
}

void FillPadding(const PictureFormat& format, int firstRow, int rows, uint8_t* rgba) {
    constexpr uint32_t kGreen = 0xFF00FF00;
    auto* pixels = reinterpret_cast<uint32_t*>(rgba);
    for (int row = firstRow; row < firstRow + rows; ++row, pixels += format.bufferWidth) {
        std::fill(pixels + (row < format.height ? format.width : 0), pixels + format.bufferWidth,
                  kGreen);
    }
}

/// The bytes of a plane for the picture's rows from \p row on.
const uint8_t* RowOf(const Picture& picture, int plane, int row) {
    const AVFrame& frame = *picture.frame;
    const bool halved = plane > 0 && picture.format.layout == AV_PIX_FMT_YUV420P;
    return frame.data[plane] +
           static_cast<ptrdiff_t>(halved ? row / 2 : row) * frame.linesize[plane];
}

}  // namespace

bool CanConvert(const PictureFormat& format) {
    return Find(format.layout) != nullptr;
}

void ConvertToRgba(const Picture& picture, int row, int rows, uint8_t* rgba) {
    constexpr int kPixelSize = 4;
    const AVFrame& frame = *picture.frame;
    const PictureFormat& format = picture.format;
    const int shown = std::min(rows, frame.height - row);
    if (shown > 0) {
        Find(format.layout)
            ->toRgba(RowOf(picture, 0, row), frame.linesize[0], RowOf(picture, 2, row),
                     frame.linesize[2], RowOf(picture, 1, row), frame.linesize[1], rgba,
                     format.bufferWidth * kPixelSize,
                     ExchangedConstants(format.matrix, format.fullRange), frame.width, shown);
    }
    FillPadding(format, row, rows, rgba);
}

void ConvertToPlanar(const Picture& picture, uint8_t* planes) {
    const AVFrame& frame = *picture.frame;
    const int stride = picture.format.bufferWidth;
    const int rows = picture.format.bufferHeight;
    const int chromaStride = (stride + 1) / 2;
    uint8_t* u = planes + static_cast<ptrdiff_t>(stride) * rows;
    uint8_t* v = u + static_cast<ptrdiff_t>(chromaStride) * ((rows + 1) / 2);
    Find(picture.format.layout)
        ->toPlanar(frame.data[0], frame.linesize[0], frame.data[1], frame.linesize[1],
                   frame.data[2], frame.linesize[2], planes, stride, u, chromaStride, v,
                   chromaStride, frame.width, frame.height);
}
