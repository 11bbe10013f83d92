#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// Horizontal and vertical lines, evenly spread from -1 to 1 at z = -1.001, to align displays by.
///
///   extraLines 1, full grid      the same, as ticks
///
///        │     │     │                  -|-
///      ──┼─────┼─────┼──                 |             The middle pair always spans the square. As
///        │     │     │            |      |      |      ticks the others shrink to a fiftieth of
///      ──┼─────┼─────┼──          -------+-------      their length, around the axis that they
///        │     │     │            |      |      |      cross.
///      ──┼─────┼─────┼──                 |
///        │     │     │                  -|-
///
/// - Axis: z.
/// - Seam: none.
/// - Cells: none, but lines: for each place from -1 to 1 the horizontal, then the vertical.
///   Vertices: first end of the horizontal, first end of the vertical, then the second ends.
/// - Size: L = 2 × extraLines + 1 lines each way, 4 × L vertices, 4 × L indices.
/// - texCoord: u 0 at the first end and 1 at the second; v from 1 at the first place to 0 at the
///   last, 0.5 for a single one.
/// - vertexColor: white.
///
/// The caller sets `primitiveType` to GL_LINES before drawing.
///
/// \param extraLines lines on each side of the middle, at least 0. Above 8,191 indices wrap
///                   without notice. A negative number counts as too many.
/// \param fullGrid   false for ticks.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory, and for counts that do not fit into 32 bits. No GL call
/// was made then.
OVR_EXPORT GlGeometry BuildCalibrationLines(int extraLines, bool fullGrid);

}  // namespace OVR
