#include <libyuv/convert.h>
#include <libyuv/convert_argb.h>

#include <algorithm>
#include <array>

#include "ColorConstants.h"
#include "Picture.h"

namespace {

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

int GreyToRgba(const uint8_t* y, int yStride, const uint8_t* /*u*/, int /*uStride*/,
               const uint8_t* /*v*/, int /*vStride*/, uint8_t* rgba, int stride,
               const libyuv::YuvConstants* constants, int width, int height) {
    return libyuv::I400ToARGBMatrix(y, yStride, rgba, stride, constants, width, height);
}

int GreyToPlanar(const uint8_t* y, int yStride, const uint8_t* /*u*/, int /*uStride*/,
                 const uint8_t* /*v*/, int /*vStride*/, uint8_t* toY, int toYStride, uint8_t* toU,
                 int toUStride, uint8_t* toV, int toVStride, int width, int height) {
    return libyuv::I400ToI420(y, yStride, toY, toYStride, toU, toUStride, toV, toVStride, width,
                              height);
}

constexpr std::array<Conversion, 4> kConversions = {{
    {AV_PIX_FMT_YUV420P, libyuv::I420ToARGBMatrix, libyuv::I420Copy},
    {AV_PIX_FMT_YUV422P, libyuv::I422ToARGBMatrix, libyuv::I422ToI420},
    {AV_PIX_FMT_YUV444P, libyuv::I444ToARGBMatrix, libyuv::I444ToI420},
    {AV_PIX_FMT_GRAY8, GreyToRgba, GreyToPlanar},
}};

const Conversion* Find(AVPixelFormat layout) {
    const auto* found =
        std::find_if(kConversions.begin(), kConversions.end(),
                     [layout](const Conversion& known) { return known.layout == layout; });
    return found != kConversions.end() ? found : nullptr;
}

}  // namespace

bool CanConvert(const PictureFormat& format) {
    return Find(format.layout) != nullptr;
}

void ConvertToRgba(const Picture& picture, uint8_t* rgba, int stride) {
    const AVFrame& frame = *picture.frame;
    Find(picture.format.layout)
        ->toRgba(frame.data[0], frame.linesize[0], frame.data[2], frame.linesize[2], frame.data[1],
                 frame.linesize[1], rgba, stride,
                 ExchangedConstants(picture.format.matrix, picture.format.fullRange), frame.width,
                 frame.height);
}

void ConvertToPlanar(const Picture& picture, uint8_t* planes) {
    const AVFrame& frame = *picture.frame;
    const int chromaWidth = (frame.width + 1) / 2;
    const int chromaHeight = (frame.height + 1) / 2;
    uint8_t* u = planes + static_cast<ptrdiff_t>(frame.width) * frame.height;
    uint8_t* v = u + static_cast<ptrdiff_t>(chromaWidth) * chromaHeight;
    Find(picture.format.layout)
        ->toPlanar(frame.data[0], frame.linesize[0], frame.data[1], frame.linesize[1],
                   frame.data[2], frame.linesize[2], planes, frame.width, u, chromaWidth, v,
                   chromaWidth, frame.width, frame.height);
}
