#include "kernel/geometry/Vignette.h"

#include <algorithm>
#include <array>

#include "kernel/geometry/private/Grid.h"

namespace OVR {
namespace {

constexpr float kBeyondEdge = 1.001F;  // Frozen: beyond the edge
constexpr uint32_t kCenterCell = 2;
constexpr Grid kGrid{5, 5};
using Stops = std::array<float, kGrid.Columns()>;

constexpr Vector4<float> kBlack = {0.0F, 0.0F, 0.0F, 1.0F};

Stops MakeStops(float fraction) {
    return {-kBeyondEdge,    fraction * 0.25F - 1.0F, fraction - 1.0F,
            1.0F - fraction, 1.0F - fraction * 0.25F, kBeyondEdge};
}

bool AtOpening(uint32_t stop) {
    return stop == kCenterCell || stop == kCenterCell + 1;
}

void FillVertices(VertexAttribs& attribs, const Stops& xStops, const Stops& yStops) {
    size_t vertex = 0;
    for (uint32_t y = 0; y <= kGrid.vertical; ++y) {
        for (uint32_t x = 0; x <= kGrid.horizontal; ++x, ++vertex) {
            attribs.position[vertex] = {xStops[x], yStops[y], 0.0F};
            attribs.vertexColor[vertex] = AtOpening(x) && AtOpening(y) ? kOpaqueWhite : kBlack;
        }
    }
    std::fill(attribs.texCoord.begin(), attribs.texCoord.end(), Vector2<float>{0.0F, 0.0F});
}

void FillIndices(Array<unsigned short>& indices) {
    unsigned short* slots = indices.Data;
    for (uint32_t y = 0; y < kGrid.vertical; ++y) {
        for (uint32_t x = 0; x < kGrid.horizontal; ++x) {
            if (x == kCenterCell && y == kCenterCell) {
                continue;
            }
            unsigned short* const cell = slots;
            slots = WriteCell(cell, y * kGrid.Columns() + x, kGrid.Columns());
            if (x == y) {
                FlipDiagonal(cell);
            }
        }
    }
}

}  // namespace

GlGeometry BuildVignette(float xFraction, float yFraction) {
    Mesh mesh(kGrid.VertexCount(), kGrid.IndexCount() - kIndicesPerCell);
    FillVertices(mesh.attribs, MakeStops(xFraction), MakeStops(yFraction));
    FillIndices(mesh.indices);
    return Upload(mesh);
}

}  // namespace OVR
