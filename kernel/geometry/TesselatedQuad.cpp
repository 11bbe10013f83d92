#include "kernel/geometry/TesselatedQuad.h"

#include <algorithm>

#include "kernel/geometry/private/Grid.h"

namespace OVR {
namespace {

void FillRow(VertexAttribs& attribs, const Grid& grid, uint32_t y, float yf) {
    const size_t first = size_t{y} * grid.Columns();
    const float rx = 1.0F / static_cast<float>(grid.horizontal);
    Vector3<float>* position = attribs.position.Data + first;
    Vector2<float>* texCoord = attribs.texCoord.Data + first;
    for (uint32_t x = 0; x <= grid.horizontal; ++x) {
        const float xf = static_cast<float>(x) * rx;
        position[x] = {xf + xf - 1.0F, yf + yf - 1.0F, 0.0F};
        texCoord[x] = {xf, 1.0F - yf};
    }
    // Frozen: fading borders
    const bool border = y == 0 || y == grid.vertical;
    Vector4<float>* vertexColor = attribs.vertexColor.Data + first;
    std::fill_n(vertexColor, grid.Columns(), border ? kClearWhite : kOpaqueWhite);
    vertexColor[0] = kClearWhite;
    vertexColor[grid.horizontal] = kClearWhite;
}

void FillVertices(VertexAttribs& attribs, const Grid& grid) {
    const float ry = 1.0F / static_cast<float>(grid.vertical);
    for (uint32_t y = 0; y <= grid.vertical; ++y) {
        FillRow(attribs, grid, y, static_cast<float>(y) * ry);
    }
}

/// The cells once more, in the same order, each wound the other way.
void WriteReversedCells(unsigned short* slots, const Grid& grid) {
    WriteCellsByRow(slots, grid);
    for (uint64_t cell = 0; cell < grid.CellCount(); ++cell, slots += kIndicesPerCell) {
        std::reverse(slots, slots + kIndicesPerCell);
    }
}

void FillIndices(Array<unsigned short>& indices, const Grid& grid, bool twoSided) {
    if (indices.IsEmpty()) {
        return;
    }
    unsigned short* back = WriteCellsByRow(indices.Data, grid);
    // The first and the last cell of the front, which may be the same one.
    // Frozen: corners of the quad
    FlipDiagonal(indices.Data);
    FlipDiagonal(back - kIndicesPerCell);
    if (twoSided) {
        WriteReversedCells(back, grid);
    }
}

}  // namespace

GlGeometry BuildTesselatedQuad(unsigned short horizontal, unsigned short vertical, bool twoSided) {
    const Grid grid{horizontal, vertical};
    Mesh mesh(grid.VertexCount(), grid.IndexCount() * (twoSided ? 2 : 1));
    FillVertices(mesh.attribs, grid);
    FillIndices(mesh.indices, grid, twoSided);
    return Upload(mesh);
}

}  // namespace OVR
