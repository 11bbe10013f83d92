#include "kernel/geometry/SpherePatch.h"

#include <algorithm>
#include <array>

#include "kernel/geometry/private/Grid.h"
#include "kernel/geometry/private/Meridians.h"
#include "kernel/geometry/private/Mesh.h"

namespace OVR {
namespace {

constexpr float kRadius = 100.0F;
constexpr float kCell = 0.015625F;
constexpr Grid kGrid{64, 64};
using Meridians = std::array<Direction, kGrid.Columns()>;

/// From -0.5 to 0.5, 0 in the middle.
float CentredFraction(uint32_t step) {
    return static_cast<float>(step) * kCell - 0.5F;
}

Meridians MakeMeridians(float fov) {
    Meridians meridians{};
    for (uint32_t x = 0; x <= kGrid.horizontal; ++x) {
        meridians[x] = DirectionOf(CentredFraction(x) * fov);
    }
    return meridians;
}

void FillRow(VertexAttribs& attribs, uint32_t y, const Meridians& meridians, float fov) {
    const Ring ring = RingAt(CentredFraction(y) * fov, kRadius);
    const float v = 0.5F - static_cast<float>(y) * kCell;

    Vector3<float>* position = attribs.position.Data + size_t{y} * kGrid.Columns();
    std::transform(meridians.begin(), meridians.end(), position,
                   [&ring](const Direction& meridian) { return PointOn(ring, meridian); });

    Vector2<float>* texCoord = attribs.texCoord.Data + size_t{y} * kGrid.Columns();
    for (uint32_t x = 0; x <= kGrid.horizontal; ++x) {
        texCoord[x] = {CentredFraction(x), v};
    }
}

}  // namespace

Mesh MakeSpherePatch(float fov) {
    const Meridians meridians = MakeMeridians(fov);
    Mesh mesh;
    SizeVertices(mesh.attribs, kGrid.VertexCount());
    for (uint32_t y = 0; y <= kGrid.vertical; ++y) {
        FillRow(mesh.attribs, y, meridians, fov);
    }
    std::fill(mesh.attribs.vertexColor.begin(), mesh.attribs.vertexColor.end(), kOpaqueWhite);
    FillCellsByColumn(mesh.indices, kGrid);
    return mesh;
}

GlGeometry BuildSpherePatch(float fov) {
    return Upload(MakeSpherePatch(fov));
}

}  // namespace OVR
