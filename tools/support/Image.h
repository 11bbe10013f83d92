#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

struct Size {
    int width = 0;
    int height = 0;
};

using Rgba = std::array<uint8_t, 4>;

/// A picture in memory: rows of R, G, B, A bytes, first row first, without padding.
struct Image {
    static constexpr int kChannels = 4;

    Image() = default;
    explicit Image(Size imageSize)
        : size(imageSize),
          pixels(static_cast<size_t>(imageSize.width) * static_cast<size_t>(imageSize.height) *
                 kChannels) {}

    uint8_t* At(int x, int y) { return &pixels[Offset(x, y)]; }
    const uint8_t* At(int x, int y) const { return &pixels[Offset(x, y)]; }

    Rgba Pixel(int x, int y) const {
        const uint8_t* p = At(x, y);
        return {p[0], p[1], p[2], p[3]};
    }

    Size size;
    std::vector<uint8_t> pixels;

private:
    size_t Offset(int x, int y) const {
        const auto row = static_cast<size_t>(y) * static_cast<size_t>(size.width);
        return (row + static_cast<size_t>(x)) * kChannels;
    }
};
