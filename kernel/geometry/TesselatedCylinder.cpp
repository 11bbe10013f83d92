#include "kernel/geometry/TesselatedCylinder.h"

#include "kernel/Math.h"
#include "kernel/geometry/private/Meridians.h"

namespace OVR {
namespace {

constexpr float kFullTurn = Math<float>::Pi + Math<float>::Pi;

// Frozen: axes and seams
void FillPositions(VertexAttribs& attribs, const Meridians& meridians, uint32_t y, float radius,
                   float z) {
    std::transform(meridians.begin(), meridians.end(),
                   attribs.position.Data + size_t{y} * meridians.Size,
                   [radius, z](const Direction& meridian) {
                       return Vector3<float>{meridian.cos * radius, meridian.sin * radius, z};
                   });
}

void FillColors(VertexAttribs& attribs, const Grid& grid, uint32_t y) {
    // Frozen: fading borders
    const bool end = y == 0 || y == grid.vertical;
    std::fill_n(attribs.vertexColor.Data + size_t{y} * grid.Columns(), grid.Columns(),
                end ? kClearWhite : kOpaqueWhite);
}

}  // namespace

GlGeometry BuildTesselatedCylinder(float radius, float height, unsigned short horizontal,
                                   unsigned short vertical, float uScale, float vScale) {
    const Grid grid{horizontal, vertical};
    const float rx = 1.0F / static_cast<float>(horizontal);
    const float ry = 1.0F / static_cast<float>(vertical);
    const auto columnFraction = [rx](uint32_t x) { return static_cast<float>(x) * rx; };
    const Meridians meridians =
        MakeMeridians(grid, [&](uint32_t x) { return columnFraction(x) * kFullTurn; });
    Mesh mesh(grid.VertexCount(), grid.IndexCount());
    for (uint32_t y = 0; y <= grid.vertical; ++y) {
        const float yf = static_cast<float>(y) * ry;
        FillPositions(mesh.attribs, meridians, y, radius, yf * (height + height) - height);
        FillTexCoordRow(
            mesh.attribs, grid, y, [&](uint32_t x) { return columnFraction(x) * uScale; },
            (1.0F - yf) * vScale);
        FillColors(mesh.attribs, grid, y);
    }
    WriteCellsByRow(mesh.indices.Data, grid);
    return Upload(mesh);
}

}  // namespace OVR
