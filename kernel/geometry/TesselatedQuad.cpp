#include "kernel/geometry/TesselatedQuad.h"

#include <algorithm>
#include <iterator>

namespace OVR {
namespace {

constexpr uint32_t kIndicesPerCell = 6;

void FillVertices(VertexAttribs& attribs, uint32_t horizontal, uint32_t vertical) {
    const uint32_t columns = horizontal + 1;
    const uint32_t count = columns * (vertical + 1);
    attribs.position.Resize(count);
    attribs.texCoord.Resize(count);
    attribs.vertexColor.Resize(count);

    const float rx = 1.0F / static_cast<float>(horizontal);
    const float ry = 1.0F / static_cast<float>(vertical);
    for (uint32_t y = 0; y <= vertical; ++y) {
        const float yf = static_cast<float>(y) * ry;
        for (uint32_t x = 0; x <= horizontal; ++x) {
            const float xf = static_cast<float>(x) * rx;
            const bool border = x == 0 || x == horizontal || y == 0 || y == vertical;
            const size_t vertex = size_t{y} * columns + x;
            attribs.position[vertex] = {xf + xf - 1.0F, yf + yf - 1.0F, 0.0F};
            attribs.texCoord[vertex] = {xf, 1.0F - yf};
            attribs.vertexColor[vertex] = {1.0F, 1.0F, 1.0F, border ? 0.0F : 1.0F};
        }
    }
}

unsigned short* WriteSide(unsigned short* slots, uint32_t horizontal, uint32_t vertical,
                          bool reversed) {
    const uint32_t columns = horizontal + 1;
    for (uint32_t y = 0; y < vertical; ++y) {
        for (uint32_t x = 0; x < horizontal; ++x) {
            const auto i = static_cast<unsigned short>(y * columns + x);
            const auto right = static_cast<unsigned short>(i + 1);
            const auto above = static_cast<unsigned short>(i + columns);
            const auto opposite = static_cast<unsigned short>(above + 1);
            const unsigned short cell[] = {i, right, above, above, right, opposite};
            slots = reversed ? std::reverse_copy(std::begin(cell), std::end(cell), slots)
                             : std::copy(std::begin(cell), std::end(cell), slots);
        }
    }
    return slots;
}

/// Splits a front cell along its other diagonal.
void FlipDiagonal(unsigned short* slots) {
    slots[1] = slots[5];
    slots[3] = slots[0];
}

void FillIndices(Array<unsigned short>& indices, uint32_t horizontal, uint32_t vertical,
                 bool twoSided) {
    const uint32_t cells = horizontal * vertical;
    indices.Resize(cells * kIndicesPerCell * (twoSided ? 2 : 1));
    unsigned short* back = WriteSide(indices.Data, horizontal, vertical, false);
    // Deliberately the first and the last cell of the front only (they may be the same one): the
    // cells in the other two corners, and all of the back, keep the grid's own split.
    FlipDiagonal(indices.Data);
    FlipDiagonal(back - kIndicesPerCell);
    if (twoSided) {
        WriteSide(back, horizontal, vertical, true);
    }
}

}  // namespace

GlGeometry BuildTesselatedQuad(unsigned short horizontal, unsigned short vertical, bool twoSided) {
    VertexAttribs attribs;
    Array<unsigned short> indices;
    FillVertices(attribs, horizontal, vertical);
    FillIndices(indices, horizontal, vertical, twoSided);

    GlGeometry geometry;
    geometry.Create(attribs, indices);
    return geometry;
}

}  // namespace OVR
