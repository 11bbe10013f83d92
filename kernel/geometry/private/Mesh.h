#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A mesh on the CPU, as the builders fill it.
struct Mesh {
    VertexAttribs attribs;
    Array<unsigned short> indices;
};

/// Gives an empty array its final size, without the spare room of one that grows on.
template <typename T>
void SizeOnce(Array<T>& array, uint32_t size) {
    array.Reserve(size);
    array.Size = size;
}

/// \return the mesh on the GPU, of GL_TRIANGLES; the caller frees it.
inline GlGeometry Upload(const Mesh& mesh) {
    GlGeometry geometry;
    geometry.Create(mesh.attribs, mesh.indices);
    return geometry;
}

/// \name The CPU halves of the builders, with the builders' own arguments.
/// @{
Mesh MakeTesselatedQuad(unsigned short horizontal, unsigned short vertical, bool twoSided);
Mesh MakeGlobe(float uScale, float vScale, float radius);
Mesh MakeDome(float latRads, float uScale, float vScale);
Mesh MakeTesselatedCylinder(float radius, float height, unsigned short horizontal,
                            unsigned short vertical, float uScale, float vScale);
Mesh MakeSpherePatch(float fov);
Mesh MakeVignette(float xFraction, float yFraction);
Mesh MakeUnitCubeLines();
Mesh MakeCalibrationLines(int extraLines, bool fullGrid);
/// @}

}  // namespace OVR
