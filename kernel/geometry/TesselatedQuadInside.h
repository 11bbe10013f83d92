#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A small rectangle below an anchor point, at z = 0.
///
///            + (x, y)
///
///     0 ┌─────────┐ 1   y - 0.2, v = 1
///       │  0.1    │                        The first row of the texture is at the bottom.
///     2 └─────────┘ 3   y - 0.4, v = 0
///
/// - Axis: z. Rows run from y - 0.2 to y - 0.4.
/// - Seam: none. Columns run from x - 0.05 to x + 0.05.
/// - Cells: one, split from upper left to lower right.
/// - Front: -z.
/// - Size: 4 vertices, 6 indices, or 12 if \p twoSided.
/// - texCoord: u from 0 to 1 with x, v from 0 to 1 with y.
/// - vertexColor: white; alpha 0 throughout.
///
/// \param x, y     anchor, in the units of the square [-1, 1] × [-1, 1]; any float is accepted.
/// \param twoSided adds the cell a second time with reversed winding.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory. No GL call was made then.
OVR_EXPORT GlGeometry BuildTesselatedQuadInside(float x, float y, bool twoSided);

}  // namespace OVR
