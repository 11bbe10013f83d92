#include "support/Backdrop.h"

namespace {

constexpr int kSquare = 16;
constexpr Rgb kLight = {204, 204, 204};
constexpr Rgb kDark = {153, 153, 153};
constexpr int kOpaque = 255;

uint8_t Mix(int over, int under, int alpha) {
    return static_cast<uint8_t>((over * alpha + under * (kOpaque - alpha) + kOpaque / 2) / kOpaque);
}

}  // namespace

Rgb Backdrop::At(int x, int y) const {
    return color_.value_or((x / kSquare + y / kSquare) % 2 == 0 ? kLight : kDark);
}

void Backdrop::Flatten(const Image& image, uint8_t* rgb) const {
    for (int y = 0; y < image.size.height; ++y) {
        const uint8_t* pixel = image.At(0, y);
        for (int x = 0; x < image.size.width; ++x, pixel += Image::kChannels) {
            const Rgb under = At(x, y);
            for (size_t channel = 0; channel < under.size(); ++channel) {
                *rgb++ = Mix(pixel[channel], under[channel], pixel[3]);
            }
        }
    }
}
