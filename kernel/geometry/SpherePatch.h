#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A square patch of a sphere of radius 100 around the y axis, centred on +x.
///
///     v = -0.5
///   ┌───────────┐         64 × 64 cells of equal longitude and latitude. Vertices run row by row
///   │     |     │ fov     from the lowest latitude up, longitude growing from +x towards +z.
///   │ ----+---- │         texCoord is centred on zero, on purpose: u runs from -0.5 to 0.5 with
///   │     |     │         the longitude and v from 0.5 to -0.5 with the latitude. Whoever samples
///   └───────────┘         a texture adds the offset.
///  u = -0.5   u = 0.5     vertexColor: white.
///
/// 4,225 vertices, 24,576 indices. Triangles wind counter-clockwise seen from the centre.
///
/// \param fov width and height of the patch, in radians.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
OVR_EXPORT GlGeometry BuildSpherePatch(float fov);

}  // namespace OVR
