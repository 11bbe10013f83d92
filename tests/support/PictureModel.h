#pragma once

#include <optional>
#include <vector>

#include "render/VEStickerList.h"
#include "support/Image.h"

/// What a renderer is expected to draw, worked out pixel by pixel on the CPU.
struct Scene {
    const Image* source = nullptr;
    const Image* mask = nullptr;     ///< Null for output mode 0.
    const Image* sticker = nullptr;  ///< Null for no sticker texture.
    VEStickerList stickers;
    bool colorMirror = true;
    float viewX = 0.0F;
    float zoom = 2.0F;
    float viewY = 0.0F;
    int rotation = 0;       ///< Clockwise, of the picture only, in degrees.
    bool softMask = false;  ///< The mask is sampled linearly.
    /// As surface textures give it: column by column, t = 0 at the last row. Null for none.
    const float* sourceMatrix = nullptr;
    Rgba clear = {0, 0, 0, 0};
};

/// One value for each output pixel, row by row; none where the sample falls on an edge of a texel,
/// of the picture or of a sticker so closely that rounding may decide.
std::vector<std::optional<Rgba>> Predict(const Scene& scene, int width, int height);
