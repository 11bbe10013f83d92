#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A whole sphere around the y axis, a surround for an equirectangular picture seen from inside.
///
///        + y              128 cells around, 70 from pole to pole: the rows are four times as dense
///      .-'''-.            next to either pole. Vertices run row by row from the south pole up,
///    /_________\          longitude growing from +z by way of -x, -z and +x, so that the middle
///   |     + - - |-> + x   of the texture lies at -z and is upright seen from the centre.
///    \_________/          Column 128 repeats column 0 bit for bit: the seam is closed.
///      '-...-'
///
/// 9,159 vertices, 53,760 indices. texCoord: u along the columns from 0 to \p uScale, but 0.5
/// throughout both pole rows; v from \p vScale at the south pole to 0 at the north pole.
/// vertexColor: white. Triangles wind counter-clockwise seen from the centre.
///
/// \param uScale, vScale how often the texture goes around and from pole to pole.
/// \param radius         of the sphere, in the caller's units; any float is accepted.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
OVR_EXPORT GlGeometry BuildGlobe(float uScale, float vScale, float radius);

}  // namespace OVR
