#pragma once

#include <algorithm>

#include "support/Image.h"

/// Pseudo-random pixels, none of them black. Every pixel differs from its neighbors, and each seed
/// gives another image.
inline Image Noise(Size size, uint32_t seed) {
    Image image(size);
    uint32_t state = seed * 2654435761U + 1U;
    for (uint8_t& byte : image.pixels) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<uint8_t>((state >> 24U) | 1U);
    }
    return image;
}

inline Image Solid(Size size, const Rgba& color) {
    Image image(size);
    for (size_t i = 0; i < image.pixels.size(); ++i) {
        image.pixels[i] = color.at(i % color.size());
    }
    return image;
}

/// The image with alpha 255, as an RGB format keeps it.
inline Image Opaque(Image image) {
    for (size_t i = 3; i < image.pixels.size(); i += Image::kChannels) {
        image.pixels[i] = 255;
    }
    return image;
}

/// The bytes of a frame or mask; none for no image.
inline std::vector<uint8_t> Packed(const Image* image, bool rgb) {
    std::vector<uint8_t> bytes;
    for (size_t i = 0; image != nullptr && i < image->pixels.size(); ++i) {
        if (!rgb || i % Image::kChannels != 3) {
            bytes.push_back(image->pixels[i]);
        }
    }
    return bytes;
}
