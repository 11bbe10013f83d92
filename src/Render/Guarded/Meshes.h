#pragma once

#include <cstddef>
#include <cstdint>

#include "GLNames.h"

/// The square on which the picture lies, [-1, 1] × [-1, 1]. Attribute 0: vec2 position.
class PictureMesh {
public:
    /// Changes the bindings of vertex array and GL_ARRAY_BUFFER.
    explicit PictureMesh(GLNames& names);
    void draw() const;

private:
    uint32_t vertexArray_;
};

/// Where stickers are drawn.
struct StickerPlaces {
    const int32_t* pairs;  ///< x, y of output pixels; (-1, -1) skips a sticker.
    size_t count;
    int32_t outputWidth;
    int32_t outputHeight;
    bool mirror;  ///< Swaps left and right of each sticker's image.
};

/// The rectangles of stickers. Attribute 0: vec4, position and texture coordinates.
class StickerMesh {
public:
    /// Changes the bindings of vertex array and GL_ARRAY_BUFFER.
    explicit StickerMesh(GLNames& names);
    /// Draws all, in their order; as many at a time as the buffer holds.
    void draw(const StickerPlaces& places) const;

private:
    uint32_t vertexArray_ = 0;
    uint32_t buffer_;
};
