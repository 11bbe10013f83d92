#include "kernel/geometry/TesselatedCylinder.h"

#include <algorithm>
#include <cmath>

#include "kernel/Math.h"
#include "kernel/geometry/Grid.h"
#include "kernel/geometry/Mesh.h"

namespace OVR {
namespace {

constexpr float kFullTurn = Math<float>::Pi + Math<float>::Pi;

/// x and y of the first ring, which all rings share.
void FillFirstRing(VertexAttribs& attribs, const Grid& grid, float radius) {
    const float rx = 1.0F / static_cast<float>(grid.horizontal);
    for (uint32_t x = 0; x <= grid.horizontal; ++x) {
        const float angle = static_cast<float>(x) * rx * kFullTurn;
        attribs.position[x] = {std::cos(angle) * radius, std::sin(angle) * radius, 0.0F};
    }
}

void FillRing(VertexAttribs& attribs, const Grid& grid, uint32_t y, float z, float uScale,
              float v) {
    const float rx = 1.0F / static_cast<float>(grid.horizontal);
    const bool end = y == 0 || y == grid.vertical;
    size_t vertex = size_t{y} * grid.Columns();
    for (uint32_t x = 0; x <= grid.horizontal; ++x, ++vertex) {
        attribs.position[vertex] = {attribs.position[x].x, attribs.position[x].y, z};
        attribs.texCoord[vertex] = {static_cast<float>(x) * rx * uScale, v};
        attribs.vertexColor[vertex] = end ? kClearWhite : kOpaqueWhite;
    }
}

void FillVertices(VertexAttribs& attribs, const Grid& grid, float radius, float height,
                  float uScale, float vScale) {
    ResizeVertices(attribs, grid.VertexCount());
    FillFirstRing(attribs, grid, radius);
    const float ry = 1.0F / static_cast<float>(grid.vertical);
    for (uint32_t y = 0; y <= grid.vertical; ++y) {
        const float yf = static_cast<float>(y) * ry;
        FillRing(attribs, grid, y, yf * (height + height) - height, uScale, (1.0F - yf) * vScale);
    }
}

}  // namespace

Mesh MakeTesselatedCylinder(float radius, float height, unsigned short horizontal,
                            unsigned short vertical, float uScale, float vScale) {
    const Grid grid{horizontal, vertical};
    Mesh mesh;
    FillVertices(mesh.attribs, grid, radius, height, uScale, vScale);
    mesh.indices.Resize(grid.CellCount() * kIndicesPerCell);
    WriteCellsByRow(mesh.indices.Data, grid);
    return mesh;
}

GlGeometry BuildTesselatedCylinder(float radius, float height, unsigned short horizontal,
                                   unsigned short vertical, float uScale, float vScale) {
    return Upload(MakeTesselatedCylinder(radius, height, horizontal, vertical, uScale, vScale));
}

}  // namespace OVR
