#include "kernel/geometry/Vignette.h"

#include <algorithm>
#include <array>

#include "kernel/geometry/private/Grid.h"
#include "kernel/geometry/private/Mesh.h"

namespace OVR {
namespace {

constexpr float kBeyondEdge = 1.001F;
constexpr uint32_t kCentreCell = 2;
constexpr Grid kGrid{5, 5};
using Stops = std::array<float, kGrid.Columns()>;

constexpr Vector4<float> kBlack = {0.0F, 0.0F, 0.0F, 1.0F};

Stops MakeStops(float fraction) {
    return {-kBeyondEdge,    fraction * 0.25F - 1.0F, fraction - 1.0F,
            1.0F - fraction, 1.0F - fraction * 0.25F, kBeyondEdge};
}

bool AtOpening(uint32_t stop) {
    return stop == kCentreCell || stop == kCentreCell + 1;
}

void FillVertices(VertexAttribs& attribs, const Stops& xStops, const Stops& yStops) {
    SizeVertices(attribs, kGrid.VertexCount());
    size_t vertex = 0;
    for (uint32_t y = 0; y <= kGrid.vertical; ++y) {
        for (uint32_t x = 0; x <= kGrid.horizontal; ++x, ++vertex) {
            attribs.position[vertex] = {xStops[x], yStops[y], 0.0F};
            attribs.vertexColor[vertex] = AtOpening(x) && AtOpening(y) ? kOpaqueWhite : kBlack;
        }
    }
    std::fill(attribs.texCoord.begin(), attribs.texCoord.end(), Vector2<float>{0.0F, 0.0F});
}

/// As WriteCell, but split from the cell's first vertex to the opposite one.
unsigned short* WriteCellOnDiagonal(unsigned short* slots, uint32_t first) {
    WriteCell(slots, first, kGrid.Columns());
    slots[1] = slots[5];
    slots[3] = slots[0];
    return slots + kIndicesPerCell;
}

void FillIndices(Array<unsigned short>& indices) {
    SizeOnce(indices, (kGrid.CellCount() - 1) * kIndicesPerCell);
    unsigned short* slots = indices.Data;
    for (uint32_t y = 0; y < kGrid.vertical; ++y) {
        for (uint32_t x = 0; x < kGrid.horizontal; ++x) {
            const uint32_t first = y * kGrid.Columns() + x;
            if (x != y) {
                slots = WriteCell(slots, first, kGrid.Columns());
            } else if (x != kCentreCell) {
                slots = WriteCellOnDiagonal(slots, first);
            }
        }
    }
}

}  // namespace

Mesh MakeVignette(float xFraction, float yFraction) {
    Mesh mesh;
    FillVertices(mesh.attribs, MakeStops(xFraction), MakeStops(yFraction));
    FillIndices(mesh.indices);
    return mesh;
}

GlGeometry BuildVignette(float xFraction, float yFraction) {
    return Upload(MakeVignette(xFraction, yFraction));
}

}  // namespace OVR
