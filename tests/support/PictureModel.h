#pragma once

#include "render/VEStickerList.h"
#include "support/Image.h"

/// What a renderer is expected to draw.
struct Scene {
    const Image* source = nullptr;
    const Image* mask = nullptr;     ///< Null for output mode 0.
    const Image* sticker = nullptr;  ///< Null for no sticker texture.
    VEStickerList stickers;
    bool colorMirror = true;
    float viewX = 0.0F;
    float zoom = 2.0F;
    float viewY = 0.0F;
    int rotation = 0;  ///< Clockwise, of the picture only, in degrees.
    /// As surface textures give it: column by column, t = 0 at the last row. Null for none.
    const float* sourceMatrix = nullptr;
    Rgba clear = {0, 0, 0, 0};
};

/// How large the picture is drawn, as a part of the output, negative from behind.
double ViewScale(double zoom);

/// Expects that \p drawn may show the scene. Where a sample is so close to an edge of a texel, of
/// the picture or of a sticker that rounding may decide, the colors of both sides are right.
///
/// \return how many pixels have such a choice.
int ExpectMayShow(const Image& drawn, const Scene& scene);

/// The same, and that few pixels have a choice.
void ExpectShows(const Image& drawn, const Scene& scene);
