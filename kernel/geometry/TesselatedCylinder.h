#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// The open side of a cylinder. The vertex color fades out at both ends.
///
///      z = -height       z = +height
///         .-.---------------.-.
///        /   \  radius     /   \          + is the axis.
///   v = |  +--|-----------|  +--| v = 0
///        \   /  vScale     \   /
///         '-'---------------'-'
///
/// - Axis: z. Rows run from z = -height to z = height.
/// - Seam: at +x. Columns run on by way of +y, -x and -y. The last is computed at a full turn: it
///   may differ from the first by rounding.
/// - Cells: horizontal around × vertical, row by row.
/// - Front: the outside.
/// - Size: (horizontal + 1) × (vertical + 1) vertices, horizontal × vertical × 6 indices.
/// - texCoord: u from 0 at the seam to \p uScale; v from \p vScale in the first row to 0 in
///   the last.
/// - vertexColor: white; alpha 0 in the first and the last row, 1 between.
///
/// \param radius         of the cylinder.
/// \param height         half of its length.
/// \param horizontal     cells around, at least 1.
/// \param vertical       cells along the axis, at least 1. With more than 65,536 vertices
///                       indices wrap without notice.
/// \param uScale, vScale how often the texture goes around and along.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
/// \throws std::bad_alloc without memory, and for counts that do not fit into 32 bits. No GL call
/// was made then.
OVR_EXPORT GlGeometry BuildTesselatedCylinder(float radius, float height, unsigned short horizontal,
                                              unsigned short vertical, float uScale, float vScale);

}  // namespace OVR
