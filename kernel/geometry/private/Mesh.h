#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// A mesh on the CPU, as the builders fill it.
struct Mesh {
    VertexAttribs attribs;
    Array<unsigned short> indices;
};

/// Gives an empty array its final size, without spare room.
template <typename T>
void SizeOnce(Array<T>& array, uint32_t size) {
    array.Reserve(size);
    array.Size = size;
}

/// Sizes what every surface has: position, texCoord and vertexColor.
inline void SizeVertices(VertexAttribs& attribs, uint32_t count) {
    SizeOnce(attribs.position, count);
    SizeOnce(attribs.texCoord, count);
    SizeOnce(attribs.vertexColor, count);
}

constexpr Vector4<float> kOpaqueWhite = {1.0F, 1.0F, 1.0F, 1.0F};
constexpr Vector4<float> kClearWhite = {1.0F, 1.0F, 1.0F, 0.0F};

/// \return the mesh on the GPU, of GL_TRIANGLES; the caller frees it.
inline GlGeometry Upload(const Mesh& mesh) {
    GlGeometry geometry;
    geometry.Create(mesh.attribs, mesh.indices);
    return geometry;
}

}  // namespace OVR
