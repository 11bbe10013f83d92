#pragma once

#include "kernel/GlGeometry.h"

namespace OVR {

/// Gives an empty array its final size, without spare room. Throws std::bad_alloc without memory,
/// and if \p size does not fit into 32 bits.
template <typename T>
void SizeOnce(Array<T>& array, uint64_t size) {
    array.Reserve(size);
    array.Size = static_cast<uint32_t>(size);
}

/// A surface on the CPU, with its final sizes, still to be filled. Counts are 64 bits wide, so that
/// SizeOnce sees those that are too large.
struct Mesh {
    Mesh(uint64_t vertexCount, uint64_t indexCount) {
        SizeOnce(attribs.position, vertexCount);
        SizeOnce(attribs.texCoord, vertexCount);
        SizeOnce(attribs.vertexColor, vertexCount);
        SizeOnce(indices, indexCount);
    }

    VertexAttribs attribs;
    Array<unsigned short> indices;
};

constexpr Vector4<float> kOpaqueWhite = {1.0F, 1.0F, 1.0F, 1.0F};
constexpr Vector4<float> kClearWhite = {1.0F, 1.0F, 1.0F, 0.0F};

/// \return the mesh on the GPU, of GL_TRIANGLES; the caller frees it.
inline GlGeometry Upload(const Mesh& mesh) {
    GlGeometry geometry;
    geometry.Create(mesh.attribs, mesh.indices);
    return geometry;
}

}  // namespace OVR
