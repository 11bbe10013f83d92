#include "kernel/geometry/Dome.h"

#include <algorithm>
#include <array>

#include "kernel/Math.h"
#include "kernel/geometry/private/Grid.h"
#include "kernel/geometry/private/Meridians.h"
#include "kernel/geometry/private/Mesh.h"

namespace OVR {
namespace {

constexpr float kPi = Math<float>::Pi;
constexpr float kRadius = 100.0F;
constexpr Grid kGrid{64, 32};
using Meridians = std::array<Direction, kGrid.horizontal>;

float ColumnFraction(uint32_t x) {
    return static_cast<float>(x) * 0.015625F;
}

Meridians MakeMeridians() {
    Meridians meridians{};
    for (uint32_t x = 0; x < kGrid.horizontal; ++x) {
        meridians[x] = DirectionOf((kPi + kPi) * (ColumnFraction(x) + 0.5F));
    }
    return meridians;
}

void FillRow(VertexAttribs& attribs, uint32_t y, const Meridians& meridians, float latRads,
             float uScale, float vScale) {
    const float yf = static_cast<float>(y) * 0.03125F;
    const Ring ring = RingAt((kPi - yf * latRads) - kPi * 0.5F, kRadius);
    const float v = (1.0F - yf) * vScale;

    Vector3<float>* position = attribs.position.Data + size_t{y} * kGrid.Columns();
    std::transform(meridians.begin(), meridians.end(), position,
                   [&ring](const Direction& meridian) { return PointOn(ring, meridian); });
    position[kGrid.horizontal] = position[0];

    Vector2<float>* texCoord = attribs.texCoord.Data + size_t{y} * kGrid.Columns();
    for (uint32_t x = 0; x <= kGrid.horizontal; ++x) {
        texCoord[x] = {ColumnFraction(x) * uScale, v};
    }
}

}  // namespace

Mesh MakeDome(float latRads, float uScale, float vScale) {
    const Meridians meridians = MakeMeridians();
    Mesh mesh;
    SizeVertices(mesh.attribs, kGrid.VertexCount());
    for (uint32_t y = 0; y <= kGrid.vertical; ++y) {
        FillRow(mesh.attribs, y, meridians, latRads, uScale, vScale);
    }
    std::fill(mesh.attribs.vertexColor.begin(), mesh.attribs.vertexColor.end(), kOpaqueWhite);
    FillCellsByColumn(mesh.indices, kGrid);
    return mesh;
}

GlGeometry BuildDome(float latRads, float uScale, float vScale) {
    return Upload(MakeDome(latRads, uScale, vScale));
}

}  // namespace OVR
