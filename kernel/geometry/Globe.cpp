#include "kernel/geometry/Globe.h"

#include "kernel/Math.h"
#include "kernel/geometry/private/Meridians.h"

namespace OVR {
namespace {

constexpr float kPi = Math<float>::Pi;
constexpr Grid kGrid{128, 70};

float ColumnFraction(uint32_t x) {
    return static_cast<float>(x) * 0.0078125F;
}

/// 0 at the south pole, 1 at the north pole. The 64th next to each pole is cut in four.
float RowFraction(uint32_t y) {
    const auto row = static_cast<float>(y);
    if (y <= 3) {
        return row * 0.00390625F;
    }
    if (y <= 66) {
        return (row - 3.0F) * 0.015625F;
    }
    return (63.0F + (row - 66.0F) * 0.25F) * 0.015625F;
}

// Frozen: axes and seams
float Longitude(uint32_t x) {
    const float quarterTurnOn = ColumnFraction(x % kGrid.horizontal) + 0.25F;
    return (quarterTurnOn + quarterTurnOn) * kPi;
}

void FillRow(VertexAttribs& attribs, uint32_t y, const Meridians& meridians, float uScale,
             float vScale, float radius) {
    const float yf = RowFraction(y);
    FillPositionRow(attribs, meridians, y, ParallelOfSphere((yf - 0.5F) * kPi, radius));
    const bool pole = y == 0 || y == kGrid.vertical;
    // Frozen: texture at the globe's poles
    FillTexCoordRow(
        attribs, kGrid, y,
        [pole, uScale](uint32_t x) { return pole ? 0.5F : ColumnFraction(x) * uScale; },
        (1.0F - yf) * vScale);
}

}  // namespace

GlGeometry BuildGlobe(float uScale, float vScale, float radius) {
    const Meridians meridians = MakeMeridians(kGrid, Longitude);
    Mesh mesh(kGrid.VertexCount(), kGrid.IndexCount());
    for (uint32_t y = 0; y <= kGrid.vertical; ++y) {
        FillRow(mesh.attribs, y, meridians, uScale, vScale, radius);
    }
    std::fill(mesh.attribs.vertexColor.begin(), mesh.attribs.vertexColor.end(), kOpaqueWhite);
    WriteCellsByColumn(mesh.indices.Data, kGrid);
    return Upload(mesh);
}

}  // namespace OVR
