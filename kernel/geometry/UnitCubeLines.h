#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// The twelve edges of the cube from (0, 0, 0) to (1, 1, 1), to show boxes and bounds.
///
///      6 ────── 7
///     ╱│       ╱│        8 vertices: bit 0 of the number is x, bit 1 is y, bit 2 is z.
///    2 ────── 3 │        24 indices: around the square z = 0, around the square z = 1, then the
///    │ 4 ─────│ 5        four edges along z.
///    │╱       │╱
///    0 ────── 1
///
/// \return a mesh of GL_LINES with position alone; the caller frees it.
OVR_EXPORT GlGeometry BuildUnitCubeLines();

}  // namespace OVR
