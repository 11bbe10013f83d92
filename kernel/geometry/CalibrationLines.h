#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// Horizontal and vertical lines, evenly spread from -1 to 1, to align displays by.
///
///   extraLines 1, full grid      the same, as ticks
///
///        │     │     │                  -|-            Both cross at z = -1.001. The middle pair
///      ──┼─────┼─────┼──                 |             always spans the square; the others shrink
///        │     │     │            |      |      |      to a fiftieth as ticks, in place along the
///      ──┼─────┼─────┼──          -------+-------      axis they cross.
///        │     │     │            |      |      |
///      ──┼─────┼─────┼──                 |
///        │     │     │                  -|-
///
/// L = 2 × extraLines + 1 lines each way: 4 × L vertices, 4 × L indices. For each line in turn
/// first end of the horizontal, first end of the vertical, second ends alike. texCoord: u 0 at the
/// first end and 1 at the second, v from 1 at the first line to 0 at the last (0.5 for a single
/// one). vertexColor: white.
///
/// The mesh's primitive type is left at GL_TRIANGLES, on purpose: whoever draws it sets
/// `primitiveType` to GL_LINES first.
///
/// \param extraLines lines on each side of the middle, at least 0. Indices wrap, without notice,
///                   above 8,191.
/// \param fullGrid   false for ticks.
/// \return a mesh with position, texCoord and vertexColor; the caller frees it.
OVR_EXPORT GlGeometry BuildCalibrationLines(int extraLines, bool fullGrid);

}  // namespace OVR
