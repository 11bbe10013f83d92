#pragma once

#include <cstdint>

#include "kernel/geometry/private/Mesh.h"

namespace OVR {

/// A rectangular grid of cells. Its vertices run row by row, x fastest.
struct Grid {
    uint32_t horizontal;  ///< Cells along x.
    uint32_t vertical;    ///< Cells along y.

    constexpr uint32_t Columns() const { return horizontal + 1; }
    constexpr uint32_t VertexCount() const { return Columns() * (vertical + 1); }
    constexpr uint32_t CellCount() const { return horizontal * vertical; }
};

constexpr uint32_t kIndicesPerCell = 6;
constexpr Vector4<float> kOpaqueWhite = {1.0F, 1.0F, 1.0F, 1.0F};
constexpr Vector4<float> kClearWhite = {1.0F, 1.0F, 1.0F, 0.0F};

/// Sizes what every surface has: position, texCoord and vertexColor.
inline void SizeVertices(VertexAttribs& attribs, uint32_t count) {
    SizeOnce(attribs.position, count);
    SizeOnce(attribs.texCoord, count);
    SizeOnce(attribs.vertexColor, count);
}

/// Two triangles over the cell whose first vertex is \p first, split between the vertices right of
/// and after it. Index values wrap at 16 bits. \return the slot behind the cell's.
inline unsigned short* WriteCell(unsigned short* slots, uint32_t first, uint32_t columns) {
    const auto i = static_cast<unsigned short>(first);
    const auto right = static_cast<unsigned short>(i + 1);
    const auto next = static_cast<unsigned short>(i + columns);
    const auto opposite = static_cast<unsigned short>(next + 1);
    slots[0] = i;
    slots[1] = right;
    slots[2] = next;
    slots[3] = next;
    slots[4] = right;
    slots[5] = opposite;
    return slots + kIndicesPerCell;
}

/// The cells row by row, into room for all of them. \return the slot behind the last.
inline unsigned short* WriteCellsByRow(unsigned short* slots, const Grid& grid) {
    for (uint32_t y = 0; y < grid.vertical; ++y) {
        for (uint32_t x = 0; x < grid.horizontal; ++x) {
            slots = WriteCell(slots, y * grid.Columns() + x, grid.Columns());
        }
    }
    return slots;
}

/// The cells column by column.
inline void FillCellsByColumn(Array<unsigned short>& indices, const Grid& grid) {
    SizeOnce(indices, grid.CellCount() * kIndicesPerCell);
    unsigned short* slots = indices.Data;
    for (uint32_t x = 0; x < grid.horizontal; ++x) {
        for (uint32_t y = 0; y < grid.vertical; ++y) {
            slots = WriteCell(slots, y * grid.Columns() + x, grid.Columns());
        }
    }
}

}  // namespace OVR
