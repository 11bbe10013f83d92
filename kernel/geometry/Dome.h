#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A cap of a sphere of radius 100 around the zenith.
///
///          + y   zenith, v = vScale
///        .-'|'-.
///      /    |<-->\  latRads
///     |_____|_____|  rim, v = 0
///           + origin
///
/// - Axis: y. Rows run from the zenith down to the rim.
/// - Seam: at -x. Columns run on by way of -z, +x and +z. The last repeats the first bit for bit.
/// - Cells: 64 around × 32, column by column.
/// - Front: the outside.
/// - Size: 2,145 vertices, 12,288 indices.
/// - texCoord: u from 0 at the seam to \p uScale; v from \p vScale at the zenith to 0 at the rim.
/// - vertexColor: white.
///
/// \param latRads        angle from the zenith to the rim, in radians.
/// \param uScale, vScale how often the texture goes around and from the zenith to the rim.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory. No GL call was made then.
OVR_EXPORT GlGeometry BuildDome(float latRads, float uScale, float vScale);

}  // namespace OVR
