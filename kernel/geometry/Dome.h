#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A cap of a sphere of radius 100 around the zenith, +y.
///
///          + y   zenith, row 0, v = vScale
///        .-'|'-.
///      /    |<-->\  latRads                64 cells around, 32 from the zenith to the rim.
///     |_____|_____|  rim, row 32, v = 0    Vertices run row by row from the zenith downwards,
///           + origin                       longitude growing from -x by way of -z. Column 64
///                                          repeats column 0 bit for bit: the seam is closed.
///
/// 2,145 vertices, 12,288 indices. texCoord: u along the columns from 0 to \p uScale. vertexColor:
/// white. Triangles wind clockwise seen from the centre, the opposite of BuildGlobe, on purpose.
///
/// \param latRads        angle from the zenith to the rim, in radians.
/// \param uScale, vScale how often the texture goes around and from the zenith to the rim.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
OVR_EXPORT GlGeometry BuildDome(float latRads, float uScale, float vScale);

}  // namespace OVR
