#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A frame over the square [-1, 1] × [-1, 1] at z = 0. Its vertex color fades from black at the
/// edge to white at the opening: multiplied over a picture it darkens the border.
///
///   ┌─┬─────────┬─┐ 1.001
///   ├─┼─────────┼─┤ 1 - y / 4           x = xFraction, y = yFraction
///   │ │         │ │ 1 - y
///   │ │   open  │ │                     The outermost rows and columns lie just beyond the square:
///   │ │         │ │ y - 1               no line of pixels at the edge stays uncovered.
///   ├─┼─────────┼─┤ y / 4 - 1
///   └─┴─────────┴─┘ -1.001
///
/// - Axis: z. Rows run upwards: y at -1.001, y / 4 - 1, y - 1, 1 - y, 1 - y / 4, 1.001.
/// - Seam: none. Columns run to the right, with x alike.
/// - Cells: 5 × 5, row by row, without the one in the center. Those with equal row and column are
///   split from lower left to upper right, so that the split of each corner runs towards the
///   center; the others from lower right to upper left.
/// - Front: +z.
/// - Size: 36 vertices, 144 indices.
/// - texCoord: (0, 0) throughout.
/// - vertexColor: white at the four vertices of the opening, black elsewhere; alpha 1.
///
/// \param xFraction, yFraction width of the border at each side; 1 reaches the center.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory. No GL call was made then.
OVR_EXPORT GlGeometry BuildVignette(float xFraction, float yFraction);

}  // namespace OVR
