#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A flat grid over the square [-1, 1] × [-1, 1] at z = 0.
///
///        v = 0
///   2 ┌───────┐ 3      Vertices run row by row from the bottom left, x fastest.
///     │     ╱ │        texCoord: u to the right, v downwards, so the texture's first row is at
///     │   ╱   │        the top. vertexColor: white; alpha 1 inside, 0 on the outer border.
///     │ ╱     │        Front faces wind counter-clockwise seen from +z.
///   0 └───────┘ 1      Cells split from lower right to upper left, but the first and the last cell
///        v = 1         the other way, so that every corner's diagonal points at the centre.
///
/// \param horizontal cells along x, at least 1.
/// \param vertical   cells along y, at least 1. Indices wrap, without notice, when
///                   (horizontal + 1) × (vertical + 1) exceeds 65,536.
/// \param twoSided   adds every cell a second time with reversed winding.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
OVR_EXPORT GlGeometry BuildTesselatedQuad(unsigned short horizontal, unsigned short vertical,
                                          bool twoSided);

}  // namespace OVR
