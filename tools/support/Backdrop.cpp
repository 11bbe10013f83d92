#include "support/Backdrop.h"

namespace {

constexpr int kSquare = 16;
constexpr Rgb kLight = {204, 204, 204};
constexpr Rgb kDark = {153, 153, 153};
constexpr int kOpaque = 255;

uint8_t Mix(int over, int under, int alpha) {
    return static_cast<uint8_t>((over * alpha + under * (kOpaque - alpha) + kOpaque / 2) / kOpaque);
}

/// Without a branch for each pixel, so that compilers vectorize it.
bool IsOpaque(const uint8_t* row, int width) {
    int alpha = kOpaque;
    for (int x = 0; x < width; ++x) {
        alpha &= row[x * Image::kChannels + 3];
    }
    return alpha == kOpaque;
}

}  // namespace

Rgb Backdrop::At(int x, int y) const {
    return color_.value_or((x / kSquare + y / kSquare) % 2 == 0 ? kLight : kDark);
}

void Backdrop::FlattenRow(Image& image, int y) const {
    uint8_t* pixel = image.At(0, y);
    for (int x = 0; x < image.size.width; ++x, pixel += Image::kChannels) {
        const Rgb under = At(x, y);
        for (size_t channel = 0; channel < under.size(); ++channel) {
            pixel[channel] = Mix(pixel[channel], under[channel], pixel[3]);
        }
        pixel[3] = kOpaque;
    }
}

void Backdrop::Flatten(Image& image) const {
    for (int y = 0; y < image.size.height; ++y) {
        if (!IsOpaque(image.At(0, y), image.size.width)) {
            FlattenRow(image, y);
        }
    }
}
