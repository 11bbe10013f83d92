#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A flat grid over the square [-1, 1] × [-1, 1] at z = 0.
///
///        v = 0
///   2 ┌───────┐ 3
///     │     ╱ │
///     │   ╱   │          With one cell: the first row of the texture is at the top.
///     │ ╱     │
///   0 └───────┘ 1
///        v = 1
///
/// - Axis: z. Rows run from y = -1 to y = 1.
/// - Seam: none. Columns run from x = -1 to x = 1.
/// - Cells: horizontal × vertical, row by row. The first and the last are split from lower left to
///   upper right, so that the split of each corner runs towards the center; all others, and all of
///   the back, from lower right to upper left.
/// - Front: +z.
/// - Size: (horizontal + 1) × (vertical + 1) vertices, horizontal × vertical × 6 indices, twice as
///   many if \p twoSided.
/// - texCoord: u from 0 to 1 with x, v from 1 to 0 with y.
/// - vertexColor: white; alpha 0 on the outer border, 1 inside.
///
/// \param horizontal cells along x, at least 1.
/// \param vertical   cells along y, at least 1. With more than 65,536 vertices indices wrap without
///                   notice.
/// \param twoSided   adds every cell a second time with reversed winding, behind all of the front.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory, and for counts that do not fit into 32 bits. No GL call
/// was made then.
OVR_EXPORT GlGeometry BuildTesselatedQuad(unsigned short horizontal, unsigned short vertical,
                                          bool twoSided);

}  // namespace OVR
