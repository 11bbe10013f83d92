#include "PlainModel.h"

#include <algorithm>
#include <array>
#include <cmath>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace {

using Colour = std::array<float, 3>;

/// The weights of red and blue in the luma.
std::pair<float, float> LumaWeights(const AVFrame& frame) {
    const bool large = frame.width > 720 || frame.height > 576;
    const bool unknown = frame.colorspace == AVCOL_SPC_UNSPECIFIED;
    const bool hd = frame.colorspace == AVCOL_SPC_BT709 || (unknown && large);
    return hd ? std::pair(0.2126F, 0.0722F) : std::pair(0.299F, 0.114F);
}

std::vector<Colour> ToRgb(const AVFrame& frame) {
    const AVPixFmtDescriptor& layout =
        *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    const bool full = frame.color_range == AVCOL_RANGE_JPEG;
    const auto [kr, kb] = LumaWeights(frame);
    const float kg = 1 - kr - kb;
    std::vector<Colour> pixels;
    for (int y = 0; y < frame.height; ++y) {
        const uint8_t* luma = frame.data[0] + y * frame.linesize[0];
        const uint8_t* u = frame.data[1] + (y >> layout.log2_chroma_h) * frame.linesize[1];
        const uint8_t* v = frame.data[2] + (y >> layout.log2_chroma_h) * frame.linesize[2];
        for (int x = 0; x < frame.width; ++x) {
            const float l = full ? luma[x] : static_cast<float>(luma[x] - 16) * 255 / 219;
            const float scale = full ? 1.0F : 255.0F / 224;
            const float cb = static_cast<float>(u[x >> layout.log2_chroma_w] - 128) * scale;
            const float cr = static_cast<float>(v[x >> layout.log2_chroma_w] - 128) * scale;
            const float red = l + 2 * (1 - kr) * cr;
            const float blue = l + 2 * (1 - kb) * cb;
            const float green = (l - kr * red - kb * blue) / kg;
            pixels.push_back({std::clamp(red, 0.0F, 255.0F), std::clamp(green, 0.0F, 255.0F),
                              std::clamp(blue, 0.0F, 255.0F)});
        }
    }
    return pixels;
}

}  // namespace

std::vector<PlainModel::Place> PlainModel::Places(int outputSize, int sourceSize) {
    constexpr double kScale = 2.2998426 / 2;  // Field of view 47 degrees, distance 2.
    std::vector<Place> places;
    for (int i = 0; i < outputSize; ++i) {
        const double point = ((2.0 * i + 1) / outputSize - 1) / kScale;
        const double texel = (point + 1) / 2 * sourceSize - 0.5;
        const double first = std::clamp(std::floor(texel), 0.0, std::max(0.0, sourceSize - 2.0));
        places.push_back({static_cast<int>(first), static_cast<float>(texel - first)});
    }
    return places;
}

double PlainModel::Psnr(const AVFrame& frame, const Image& drawn) const {
    const std::vector<Colour> source = ToRgb(frame);
    const auto columns = Places(size_.width, frame.width);
    const auto rows = Places(size_.height, frame.height);
    double error = 0;
    size_t count = 0;
    for (int y = 0; y < size_.height; y += 2) {
        const Place& row = rows[static_cast<size_t>(y)];
        const Colour* upper = &source[static_cast<size_t>(row.texel * frame.width)];
        const Colour* lower = upper + frame.width;
        const uint8_t* got = drawn.At(0, y);
        for (const Place& column : columns) {
            for (size_t c = 0; c < 3; ++c) {
                const auto at = [&](const Colour* line) {
                    return line[column.texel][c] * (1 - column.weight) +
                           line[column.texel + 1][c] * column.weight;
                };
                const float expected = at(upper) * (1 - row.weight) + at(lower) * row.weight;
                const double difference = static_cast<double>(expected) - got[c];
                error += difference * difference;
                ++count;
            }
            got += Image::kChannels;
        }
    }
    const double mean = error / static_cast<double>(count);
    return 10 * std::log10(255.0 * 255.0 / std::max(mean, 1e-6));
}
