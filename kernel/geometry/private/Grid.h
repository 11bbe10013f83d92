#pragma once

#include <cstdint>

#include "kernel/geometry/private/Mesh.h"

namespace OVR {

constexpr uint32_t kIndicesPerCell = 6;

/// A rectangular grid of cells. Its vertices run row by row, x fastest.
struct Grid {
    uint32_t horizontal;  ///< Cells along x.
    uint32_t vertical;    ///< Cells along y.

    constexpr uint32_t Columns() const { return horizontal + 1; }
    constexpr uint64_t VertexCount() const { return uint64_t{Columns()} * (vertical + 1); }
    constexpr uint64_t CellCount() const { return uint64_t{horizontal} * vertical; }
    constexpr uint64_t IndexCount() const { return CellCount() * kIndicesPerCell; }
};

/// Writes the two triangles of the cell whose first vertex is \p first. They meet between the
/// vertex to its right and the one in the next row. \return the slot behind the cell's.
// Frozen: 16-bit indices
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

/// Splits a cell of WriteCell along its other diagonal.
inline void FlipDiagonal(unsigned short* slots) {
    slots[1] = slots[5];
    slots[3] = slots[0];
}

/// Writes the cells row by row, into room for all of them. \return the slot behind the last.
inline unsigned short* WriteCellsByRow(unsigned short* slots, const Grid& grid) {
    for (uint32_t y = 0; y < grid.vertical; ++y) {
        for (uint32_t x = 0; x < grid.horizontal; ++x) {
            slots = WriteCell(slots, y * grid.Columns() + x, grid.Columns());
        }
    }
    return slots;
}

/// Writes the cells column by column, into room for all of them.
inline void WriteCellsByColumn(unsigned short* slots, const Grid& grid) {
    for (uint32_t x = 0; x < grid.horizontal; ++x) {
        for (uint32_t y = 0; y < grid.vertical; ++y) {
            slots = WriteCell(slots, y * grid.Columns() + x, grid.Columns());
        }
    }
}

/// Fills the texture coordinates of row \p y. \p uOf gives u for a column.
template <typename UOf>
void FillTexCoordRow(VertexAttribs& attribs, const Grid& grid, uint32_t y, UOf uOf, float v) {
    Vector2<float>* row = attribs.texCoord.Data + size_t{y} * grid.Columns();
    for (uint32_t x = 0; x <= grid.horizontal; ++x) {
        row[x] = {uOf(x), v};
    }
}

}  // namespace OVR
