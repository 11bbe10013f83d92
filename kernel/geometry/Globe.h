#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A whole sphere that surrounds the viewer, for equirectangular pictures.
///
///        + y
///      .-'''-.
///    /_________\         The middle of the texture lies at -z, upright for a viewer at the center.
///   |     + - - |-> + x
///    \_________/
///      '-...-'
///
/// - Axis: y. Rows run from the south pole to the north pole, four times as dense next to either.
/// - Seam: at +z. Columns run on by way of -x, -z and +x. The last repeats the first bit for bit.
/// - Cells: 128 around × 70, column by column.
/// - Front: the inside.
/// - Size: 9,159 vertices, 53,760 indices.
/// - texCoord: u from 0 at the seam to \p uScale, but 0.5 in both pole rows; v from \p vScale at
///   the south pole to 0 at the north pole.
/// - vertexColor: white.
///
/// \param uScale, vScale how often the texture goes around and from pole to pole.
/// \param radius         of the sphere, in the caller's units; any float is accepted.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory. No GL call was made then.
OVR_EXPORT GlGeometry BuildGlobe(float uScale, float vScale, float radius);

}  // namespace OVR
