#pragma once

#include <array>
#include <cstdint>
#include <vector>

using Rgba = std::array<uint8_t, 4>;

/// Tightly packed pixels, first row first, 3 (RGB) or 4 (RGBA) bytes each.
struct Image {
    Image(int width, int height, int channels)
        : width(width),
          height(height),
          channels(channels),
          bytes(static_cast<size_t>(width) * static_cast<size_t>(height) *
                static_cast<size_t>(channels)) {}

    uint8_t* at(int x, int y) {
        return &bytes[(static_cast<size_t>(y) * static_cast<size_t>(width) +
                       static_cast<size_t>(x)) *
                      static_cast<size_t>(channels)];
    }
    const uint8_t* at(int x, int y) const { return const_cast<Image*>(this)->at(x, y); }

    Rgba pixel(int x, int y) const {
        const uint8_t* p = at(x, y);
        return {p[0], p[1], p[2], channels == 4 ? p[3] : uint8_t{255}};
    }

    int width;
    int height;
    int channels;
    std::vector<uint8_t> bytes;
};

/// Pseudo-random pixels, none of them black: every pixel differs from its neighbours, and each seed
/// from every other.
inline Image Noise(int width, int height, int channels, uint32_t seed) {
    Image image(width, height, channels);
    uint32_t state = seed * 2654435761U + 1U;
    for (uint8_t& byte : image.bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<uint8_t>((state >> 24U) | 1U);
    }
    return image;
}

inline Image Solid(int width, int height, const Rgba& color) {
    Image image(width, height, 4);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            std::copy(color.begin(), color.end(), image.at(x, y));
        }
    }
    return image;
}
