#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A ring-shaped tube, for pictures that go around without an end.
///
///      cut along the axis
///
///               + y
///      .---.    |    .---.
///     |  +  |   +---|--+--|       radius:     from the axis to the middle of the tube
///      '---'         '---'        tubeRadius: from there to the surface
///
/// - Axis: y. Rows run from the inner side by way of the bottom, the outer side and the top. The
///   last repeats the first bit for bit.
/// - Seam: at -z. Columns run on by way of -x, +z and +x. The last repeats the first bit for bit.
/// - Cells: horizontal around × vertical, row by row.
/// - Front: the outside.
/// - Size: (horizontal + 1) × (vertical + 1) vertices, horizontal × vertical × 6 indices.
/// - texCoord: u from 0 at the seam to \p uScale; v from \p vScale in the first row to 0 in
///   the last. The middle of the texture lies at +z on the outer side, upright.
/// - vertexColor: white.
///
/// \param radius, tubeRadius in the caller's units. A tube wider than the ring cuts itself.
/// \param horizontal         cells around the axis, at least 1.
/// \param vertical           cells around the tube, at least 1. With more than 65,536 vertices
///                           indices wrap without notice.
/// \param uScale, vScale     how often the texture goes around the axis and around the tube.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory, and for counts that do not fit into 32 bits. No GL call
/// was made then.
OVR_EXPORT GlGeometry BuildTorus(float radius, float tubeRadius, unsigned short horizontal,
                                 unsigned short vertical, float uScale, float vScale);

}  // namespace OVR
