#include "Background.h"

#include <algorithm>
#include <array>

#include "support/FrameConverter.h"
#include "support/VideoReader.h"

namespace {

constexpr size_t kMostSamples = 32;

using Samples = std::vector<std::vector<uint8_t>>;

/// Keeps every other sample.
void Thin(Samples& samples) {
    for (size_t i = 0; 2 * i < samples.size(); ++i) {
        samples[i].swap(samples[2 * i]);
    }
    samples.resize((samples.size() + 1) / 2);
}

/// Frames at equal distances over the whole video. Its length need not be known: when there are too
/// many samples, the distance doubles.
Samples SampleFrames(VideoReader& reader) {
    const AVFrame* frame = &reader.First();
    FrameConverter converter(SizeOr({}, *frame), AV_PIX_FMT_RGB24);
    Samples samples;
    size_t distance = 1;
    for (size_t number = 0; frame != nullptr; frame = reader.Next(), ++number) {
        if (number % distance != 0) {
            continue;
        }
        const uint8_t* pixels = converter.Convert(*frame);
        samples.emplace_back(pixels, pixels + converter.ByteSize());
        if (samples.size() == kMostSamples) {
            Thin(samples);
            distance *= 2;
        }
    }
    return samples;
}

}  // namespace

std::vector<uint8_t> FindBackground(const std::string& path) {
    VideoReader reader(path);
    const Samples samples = SampleFrames(reader);
    std::vector<uint8_t> background(samples.front().size());
    std::array<uint8_t, kMostSamples> values{};
    auto* const middle = values.begin() + samples.size() / 2;
    for (size_t i = 0; i < background.size(); ++i) {
        auto* const end = std::transform(samples.begin(), samples.end(), values.begin(),
                                         [i](const auto& sample) { return sample[i]; });
        std::nth_element(values.begin(), middle, end);
        background[i] = *middle;
    }
    return background;
}
