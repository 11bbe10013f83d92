#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "mediandk/Av.h"

/// A compressed picture, or several parts of one.
struct TestUnit {
    std::vector<uint8_t> bytes;
    int64_t timeUs = 0;
    int64_t decodingTimeUs = 0;
    bool key = false;
};

struct Yuv {
    uint8_t y;
    uint8_t u;
    uint8_t v;
};

/// What to encode and how. A picture has four quarters of one color each: top left, top right,
/// bottom left, bottom right.
struct TestStream {
    using Quarters = std::array<Yuv, 4>;

    std::string encoder = "libx264";
    int width = 320;
    int height = 240;
    AVPixelFormat layout = AV_PIX_FMT_YUV420P;
    AVColorSpace colors = AVCOL_SPC_BT470BG;
    AVColorRange range = AVCOL_RANGE_MPEG;
    std::string profile;  ///< Of H.264; empty: chosen by the encoder.
    int bFrames = 0;
    int keyInterval = 10;
    bool parameterSetsApart = false;
    std::function<Quarters(int index)> picture;

    /// Motion JPEG, in full range.
    void MakeJpeg(AVPixelFormat jpegLayout) {
        encoder = "mjpeg";
        layout = jpegLayout;
        range = AVCOL_RANGE_JPEG;
    }
    std::string MimeType() const { return encoder == "mjpeg" ? "video/mjpeg" : "video/avc"; }
};

constexpr int64_t kFrameTimeUs = 40000;

inline TestStream::Quarters Gray(uint8_t level) {
    const Yuv gray = {level, 128, 128};
    return {gray, gray, gray, gray};
}

/// Units in decoding order; picture n has the time n * kFrameTimeUs.
/// \param encoder receives the encoder, which has the parameter sets if they are kept apart.
std::vector<TestUnit> Encode(const TestStream& stream, int count,
                             av::CodecContext* encoder = nullptr);
