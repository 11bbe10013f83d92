#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "support/Image.h"

using Rgb = std::array<uint8_t, 3>;

/// What shows through the transparent parts of a picture: one color, or a gray checkerboard.
class Backdrop {
public:
    /// The checkerboard.
    Backdrop() = default;
    explicit Backdrop(Rgb color) : color_(color) {}

    /// Lays \p image, whose alpha is not premultiplied, over the backdrop. It is opaque then.
    void Flatten(Image& image) const;

private:
    Rgb At(int x, int y) const;
    void FlattenRow(Image& image, int y) const;

    std::optional<Rgb> color_;
};
