#include "PlainModel.h"

#include <algorithm>
#include <cmath>

#include "support/FrameConverter.h"
#include "support/PictureModel.h"

std::vector<PlainModel::Place> PlainModel::Places(int outputSize, int sourceSize) {
    const double scale = ViewScale(2);
    std::vector<Place> places;
    for (int i = 0; i < outputSize; ++i) {
        const double point = ((2.0 * i + 1) / outputSize - 1) / scale;
        const double texel = (point + 1) / 2 * sourceSize - 0.5;
        const double first = std::clamp(std::floor(texel), 0.0, std::max(0.0, sourceSize - 2.0));
        places.push_back({static_cast<int>(first), static_cast<float>(texel - first)});
    }
    return places;
}

double PlainModel::Psnr(const AVFrame& frame, const Image& drawn) const {
    FrameConverter converter({frame.width, frame.height}, AV_PIX_FMT_RGBA);
    const uint8_t* const source = converter.Convert(frame);
    const int stride = Image::kChannels * frame.width;
    const auto columns = Places(size_.width, frame.width);
    const auto rows = Places(size_.height, frame.height);
    double error = 0;
    size_t count = 0;
    for (int y = 0; y < size_.height; y += 2) {
        const Place& row = rows[static_cast<size_t>(y)];
        const uint8_t* upper = source + static_cast<ptrdiff_t>(row.texel) * stride;
        const uint8_t* got = drawn.At(0, y);
        for (const Place& column : columns) {
            for (int c = 0; c < 3; ++c) {
                const auto at = [&](const uint8_t* line) {
                    const uint8_t* texel =
                        line + static_cast<ptrdiff_t>(column.texel) * Image::kChannels + c;
                    return static_cast<float>(texel[0]) * (1 - column.weight) +
                           static_cast<float>(texel[Image::kChannels]) * column.weight;
                };
                const float expected =
                    at(upper) * (1 - row.weight) + at(upper + stride) * row.weight;
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
