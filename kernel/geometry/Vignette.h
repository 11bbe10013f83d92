#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A frame over the square [-1, 1] × [-1, 1] at z = 0 whose vertex colour fades from black at the
/// edge to white at the opening in the middle. Multiplied over a picture it darkens the border.
///
///   ┌─┬─────────┬─┐ 1.001              Stops along x (along y alike, with yFraction):
///   ├─┼─────────┼─┤ 1 - f / 4
///   │ │         │ │                      -1.001   x/4 - 1   x - 1   1 - x   1 - x/4   1.001
///   │ │   open  │ │                       black    black    white   white    black    black
///   │ │         │ │
///   ├─┼─────────┼─┤ f - 1              The outermost lie just beyond the square, so that no line
///   └─┴─────────┴─┘ -1.001             of pixels at the edge stays uncovered.
///
/// 36 vertices, 6 × 6 row by row from the bottom left, x fastest; 144 indices in 24 cells: the
/// centre cell is left out. texCoord: (0, 0) throughout. Triangles wind counter-clockwise seen from
/// +z, and in every corner the split runs towards the centre.
///
/// \param xFraction, yFraction width of the border at each side, 1 reaching the centre.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
OVR_EXPORT GlGeometry BuildVignette(float xFraction, float yFraction);

}  // namespace OVR
