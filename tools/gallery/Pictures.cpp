#include "Pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>

#include "kernel/Math.h"
#include "support/BitmapFont.h"

namespace {

constexpr Size kPanoramaSize = {2048, 1024};
constexpr Size kPhotoSize = {640, 480};
constexpr int kPixelsPerGridLine = 2048 / 24;  // 15 degrees
constexpr int kTextScale = 2;
constexpr Rgb kInk = {20, 24, 40};

template <typename Color>
Image Paint(Size size, const Color& colorAt) {
    Image image(size);
    for (int y = 0; y < size.height; ++y) {
        uint8_t* pixel = image.At(0, y);
        for (int x = 0; x < size.width; ++x, pixel += Image::kChannels) {
            const Rgb color = colorAt(x, y);
            std::copy(color.begin(), color.end(), pixel);
            pixel[3] = 255;
        }
    }
    return image;
}

Rgb Mix(const Rgb& a, const Rgb& b, float share) {
    Rgb mixed{};
    std::transform(a.begin(), a.end(), b.begin(), mixed.begin(), [share](uint8_t from, uint8_t to) {
        const auto low = static_cast<float>(from);
        return static_cast<uint8_t>(std::lround(low + (static_cast<float>(to) - low) * share));
    });
    return mixed;
}

Rgb PanoramaColor(int x, int y) {
    const float height = 1 - 2 * static_cast<float>(y) / kPanoramaSize.height;
    if (x % kPixelsPerGridLine < 2 || y % kPixelsPerGridLine < 2) {
        return {250, 250, 250};
    }
    if (height > 0) {
        return Mix({190, 220, 245}, {60, 110, 190}, height);
    }
    const bool dark = (x / kPixelsPerGridLine + y / kPixelsPerGridLine) % 2 == 0;
    return Mix(dark ? Rgb{110, 150, 90} : Rgb{140, 175, 110}, {70, 60, 50}, -height);
}

/// Degrees in steps of 30: longitude 0 in the middle, east to the right.
void LabelGrid(Image& panorama) {
    for (int column = 0; column < 12; ++column) {
        for (int row = -2; row <= 2; ++row) {
            const int longitude = column * 30 - 180;
            const std::string label =
                std::to_string(longitude) + (row == 0 ? "" : "/" + std::to_string(row * 30));
            const int x = column * panorama.size.width / 12;
            const int y = panorama.size.height / 2 - row * panorama.size.height / 6;
            DrawText(panorama, x + 6, y + 6, label, kTextScale, kInk);
        }
    }
}

/// Hills under a low sun.
Rgb LandscapeColor(int x, int y) {
    const auto px = static_cast<float>(x);
    const auto py = static_cast<float>(y);
    if (std::hypot(px - 440, py - 150) < 48) {
        return {255, 236, 170};
    }
    static constexpr std::array<Rgb, 3> kHills = {{{120, 130, 160}, {90, 115, 105}, {60, 85, 60}}};
    Rgb color = Mix({90, 140, 205}, {250, 205, 160}, std::min(1.0F, py / 280));
    for (size_t i = 0; i < kHills.size(); ++i) {
        const auto layer = static_cast<float>(i);
        const float ridge = 250 + 70 * layer + 30 * std::sin(px / (90 - 20 * layer) + 2 * layer) +
                            10 * std::sin(px / 23 + layer);
        color = py > ridge ? kHills[i] : color;
    }
    return color;
}

}  // namespace

Image DrawPanorama() {
    Image panorama = Paint(kPanoramaSize, PanoramaColor);
    LabelGrid(panorama);
    return panorama;
}

Image DrawLandscape() {
    return Paint(kPhotoSize, LandscapeColor);
}
