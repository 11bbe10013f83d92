#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// The twelve edges of the cube from (0, 0, 0) to (1, 1, 1), to show boxes and bounds.
///
///      6 ────── 7
///     ╱│       ╱│
///    2 ────── 3 │        Bit 0 of a vertex's number is x, bit 1 is y, bit 2 is z.
///    │ 4 ─────│ 5
///    │╱       │╱
///    0 ────── 1
///
/// - Axis: none.
/// - Seam: none.
/// - Cells: none, but lines: around the square z = 0, around the square z = 1, then along z.
/// - Size: 8 vertices, 24 indices.
///
/// \return a mesh of GL_LINES with position alone; the caller frees it.
/// \throws std::bad_alloc without memory. No GL call was made then.
OVR_EXPORT GlGeometry BuildUnitCubeLines();

}  // namespace OVR
