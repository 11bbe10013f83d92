#include "kernel/geometry/Globe.h"

#include <algorithm>
#include <array>

#include "kernel/Math.h"
#include "kernel/geometry/private/Grid.h"
#include "kernel/geometry/private/Meridians.h"
#include "kernel/geometry/private/Mesh.h"

namespace OVR {
namespace {

constexpr Grid kGrid{128, 70};
using Meridians = std::array<Direction, kGrid.horizontal>;

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

Meridians MakeMeridians() {
    Meridians meridians{};
    for (uint32_t x = 0; x < kGrid.horizontal; ++x) {
        const float quarterTurnOn = ColumnFraction(x) + 0.25F;
        meridians[x] = DirectionOf((quarterTurnOn + quarterTurnOn) * Math<float>::Pi);
    }
    return meridians;
}

void FillRow(VertexAttribs& attribs, uint32_t y, const Meridians& meridians, float uScale,
             float vScale, float radius) {
    const float yf = RowFraction(y);
    const Ring ring = RingAt((yf - 0.5F) * Math<float>::Pi, radius);
    const float v = (1.0F - yf) * vScale;
    const bool pole = y == 0 || y == kGrid.vertical;

    Vector3<float>* position = attribs.position.Data + size_t{y} * kGrid.Columns();
    std::transform(meridians.begin(), meridians.end(), position,
                   [&ring](const Direction& meridian) { return PointOn(ring, meridian); });
    position[kGrid.horizontal] = position[0];

    Vector2<float>* texCoord = attribs.texCoord.Data + size_t{y} * kGrid.Columns();
    for (uint32_t x = 0; x <= kGrid.horizontal; ++x) {
        // At a pole all columns meet: they share the middle of the texture, whatever its scale.
        texCoord[x] = {pole ? 0.5F : ColumnFraction(x) * uScale, v};
    }
}

}  // namespace

Mesh MakeGlobe(float uScale, float vScale, float radius) {
    const Meridians meridians = MakeMeridians();
    Mesh mesh;
    SizeVertices(mesh.attribs, kGrid.VertexCount());
    for (uint32_t y = 0; y <= kGrid.vertical; ++y) {
        FillRow(mesh.attribs, y, meridians, uScale, vScale, radius);
    }
    std::fill(mesh.attribs.vertexColor.begin(), mesh.attribs.vertexColor.end(), kOpaqueWhite);
    FillCellsByColumn(mesh.indices, kGrid);
    return mesh;
}

GlGeometry BuildGlobe(float uScale, float vScale, float radius) {
    return Upload(MakeGlobe(uScale, vScale, radius));
}

}  // namespace OVR
