#include "kernel/geometry/TesselatedCylinder.h"

#include <algorithm>
#include <cmath>

#include "kernel/Math.h"
#include "kernel/geometry/private/Grid.h"
#include "kernel/geometry/private/Mesh.h"

namespace OVR {
namespace {

constexpr float kFullTurn = Math<float>::Pi + Math<float>::Pi;

/// x, y and u of the first ring, which all rings share.
void FillFirstRing(VertexAttribs& attribs, const Grid& grid, float radius, float uScale) {
    const float rx = 1.0F / static_cast<float>(grid.horizontal);
    for (uint32_t x = 0; x <= grid.horizontal; ++x) {
        const float xf = static_cast<float>(x) * rx;
        const float angle = xf * kFullTurn;
        attribs.position[x] = {std::cos(angle) * radius, std::sin(angle) * radius, 0.0F};
        attribs.texCoord[x] = {xf * uScale, 0.0F};
    }
}

void FillRing(VertexAttribs& attribs, const Grid& grid, uint32_t y, float z, float v) {
    const size_t first = size_t{y} * grid.Columns();
    const bool end = y == 0 || y == grid.vertical;
    std::transform(attribs.position.Data, attribs.position.Data + grid.Columns(),
                   attribs.position.Data + first, [z](const Vector3<float>& shared) {
                       return Vector3<float>{shared.x, shared.y, z};
                   });
    std::transform(attribs.texCoord.Data, attribs.texCoord.Data + grid.Columns(),
                   attribs.texCoord.Data + first, [v](const Vector2<float>& shared) {
                       return Vector2<float>{shared.x, v};
                   });
    std::fill_n(attribs.vertexColor.Data + first, grid.Columns(), end ? kClearWhite : kOpaqueWhite);
}

void FillVertices(VertexAttribs& attribs, const Grid& grid, float radius, float height,
                  float uScale, float vScale) {
    SizeVertices(attribs, grid.VertexCount());
    FillFirstRing(attribs, grid, radius, uScale);
    const float ry = 1.0F / static_cast<float>(grid.vertical);
    for (uint32_t y = 0; y <= grid.vertical; ++y) {
        const float yf = static_cast<float>(y) * ry;
        FillRing(attribs, grid, y, yf * (height + height) - height, (1.0F - yf) * vScale);
    }
}

}  // namespace

Mesh MakeTesselatedCylinder(float radius, float height, unsigned short horizontal,
                            unsigned short vertical, float uScale, float vScale) {
    const Grid grid{horizontal, vertical};
    Mesh mesh;
    FillVertices(mesh.attribs, grid, radius, height, uScale, vScale);
    SizeOnce(mesh.indices, grid.CellCount() * kIndicesPerCell);
    WriteCellsByRow(mesh.indices.Data, grid);
    return mesh;
}

GlGeometry BuildTesselatedCylinder(float radius, float height, unsigned short horizontal,
                                   unsigned short vertical, float uScale, float vScale) {
    return Upload(MakeTesselatedCylinder(radius, height, horizontal, vertical, uScale, vScale));
}

}  // namespace OVR
