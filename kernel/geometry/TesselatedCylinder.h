#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// The open side of a cylinder around the z axis, from z = -height to z = +height.
///
///      z = -height       z = +height
///         .-.---------------.-.           Vertices run ring by ring along +z, in each ring from
///        /   \  radius     /   \          +x towards +y. The last column is computed anew at a
///   v = |  +--|-----------|  +--| v = 0   full turn: it may differ from the first by rounding.
///        \   /  vScale     \   /          vertexColor: white; alpha 0 on the first and the last
///         '-'---------------'-'           ring, so that the tube fades out at its ends.
///
/// (horizontal + 1) × (vertical + 1) vertices, horizontal × vertical × 6 indices. texCoord: u
/// around from 0 to \p uScale, v along z from \p vScale to 0. Triangles wind counter-clockwise seen
/// from outside.
///
/// \param radius         of the tube.
/// \param height         half of the tube's length.
/// \param horizontal     cells around, at least 1.
/// \param vertical       cells along the axis, at least 1. Indices wrap, without notice, when there
///                       are more than 65,536 vertices.
/// \param uScale, vScale how often the texture goes around and along.
/// \return a mesh of GL_TRIANGLES with position, texCoord and vertexColor; the caller frees it.
OVR_EXPORT GlGeometry BuildTesselatedCylinder(float radius, float height, unsigned short horizontal,
                                              unsigned short vertical, float uScale, float vScale);

}  // namespace OVR
