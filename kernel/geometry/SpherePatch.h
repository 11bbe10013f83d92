#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A square patch of a sphere of radius 100, centered on +x.
///
///     v = -0.5
///   ┌───────────┐
///   │     |     │ fov     Cells span equal angles of longitude and latitude.
///   │ ----+---- │
///   │     |     │
///   └───────────┘
///  u = -0.5   u = 0.5
///
/// - Axis: y. Rows run from the lowest latitude to the highest.
/// - Seam: none. Columns run from longitude -fov / 2 to fov / 2, towards +z.
/// - Cells: 64 × 64, column by column.
/// - Front: the inside.
/// - Size: 4,225 vertices, 24,576 indices.
/// - texCoord: centered on zero; u from -0.5 to 0.5 with the longitude, v from 0.5 to -0.5 with the
///   latitude. Add 0.5 to both to sample a whole texture.
/// - vertexColor: white.
///
/// \param fov width and height of the patch, in radians.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory. No GL call was made then.
OVR_EXPORT GlGeometry BuildSpherePatch(float fov);

}  // namespace OVR
