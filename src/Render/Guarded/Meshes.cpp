#include "Meshes.h"

#include <algorithm>
#include <iterator>

#include "gl/GLES3.h"

namespace {

/// Two triangles; the diagonal and the order of the corners are those of the kernel's quads, so
/// that all renderers cover and interpolate alike.
constexpr int kVertices = 6;
constexpr float kSquare[kVertices][2] = {{-1, -1}, {1, 1}, {-1, 1}, {-1, -1}, {1, -1}, {1, 1}};

constexpr float kStickerHalfWidth = 0.05F;
constexpr float kStickerTop = 0.2F;     ///< Above the anchor, where it is nearest.
constexpr float kStickerBottom = 0.4F;  ///< Where it ends.

constexpr size_t kStickersAtATime = 32;

struct StickerVertex {
    float x;
    float y;
    float s;
    float t;
};

/// Makes a vertex array whose attribute 0 reads floats from \p buffer, which stays bound.
uint32_t MakeVertexArray(GLNames& names, uint32_t buffer, GLint floats) {
    const uint32_t vertexArray = names.makeVertexArray();
    GLES3::glBindVertexArray(vertexArray);
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, buffer);
    GLES3::glEnableVertexAttribArray(0);
    GLES3::glVertexAttribPointer(0, floats, GL_FLOAT, GL_FALSE, 0, nullptr);
    return vertexArray;
}

/// Distance of \p pixel from the center, in halves of the output's size.
float FromCenter(int32_t pixel, int32_t size) {
    const int32_t half = std::max(size / 2, 1);
    return static_cast<float>(int64_t{pixel} - half) / static_cast<float>(half);
}

/// The texture's first row lands nearest to the anchor.
void FillSticker(StickerVertex* vertices, float x, float y, bool mirror) {
    const float left = x - kStickerHalfWidth;
    const float right = x + kStickerHalfWidth;
    const float sLeft = mirror ? 1.0F : 0.0F;
    const StickerVertex corners[4] = {{left, y - kStickerTop, sLeft, 0},
                                      {right, y - kStickerTop, 1 - sLeft, 0},
                                      {left, y - kStickerBottom, sLeft, 1},
                                      {right, y - kStickerBottom, 1 - sLeft, 1}};
    static constexpr int kCorners[kVertices] = {0, 3, 2, 0, 1, 3};
    std::transform(std::begin(kCorners), std::end(kCorners), vertices,
                   [&](int corner) { return corners[corner]; });
}

}  // namespace

PictureMesh::PictureMesh(GLNames& names)
    : vertexArray_(MakeVertexArray(names, names.makeBuffer(), 2)) {
    GLES3::glBufferData(GL_ARRAY_BUFFER, sizeof(kSquare), kSquare, GL_STATIC_DRAW);
}

void PictureMesh::draw() const {
    GLES3::glBindVertexArray(vertexArray_);
    GLES3::glDrawArrays(GL_TRIANGLES, 0, kVertices);
}

StickerMesh::StickerMesh(GLNames& names) : buffer_(names.makeBuffer()) {
    vertexArray_ = MakeVertexArray(names, buffer_, 4);
    GLES3::glBufferData(GL_ARRAY_BUFFER, kStickersAtATime * kVertices * sizeof(StickerVertex),
                        nullptr, GL_STREAM_DRAW);
}

void StickerMesh::draw(const StickerPlaces& places) const {
    StickerVertex vertices[kStickersAtATime * kVertices];
    GLES3::glBindVertexArray(vertexArray_);
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, buffer_);
    for (size_t next = 0; next < places.count;) {
        int filled = 0;
        for (size_t room = kStickersAtATime; next < places.count && room > 0; ++next) {
            const int32_t x = places.pairs[2 * next];
            const int32_t y = places.pairs[2 * next + 1];
            if (x != -1 || y != -1) {
                FillSticker(vertices + filled, FromCenter(x, places.outputWidth),
                            FromCenter(y, places.outputHeight), places.mirror);
                filled += kVertices;
                --room;
            }
        }
        if (filled == 0) {  // WebGL takes a size of 0 for all there is.
            return;
        }
        GLES3::glBufferSubData(GL_ARRAY_BUFFER, 0,
                               static_cast<GLsizeiptr>(sizeof(StickerVertex)) * filled, vertices);
        GLES3::glDrawArrays(GL_TRIANGLES, 0, filled);
    }
}
