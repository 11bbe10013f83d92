#pragma once

#include <cstdint>

#include "gl/GLES3.h"
#include "kernel/Array.h"
#include "kernel/Bounds3.h"
#include "kernel/Export.h"
#include "kernel/VertexAttribs.h"

namespace OVR {

/// A mesh on the GPU: vertex buffer, 16-bit index buffer and vertex array object.
///
/// A plain value: copies name the same GL objects, and Free on any of them deletes the objects for
/// all. Every call needs the GL context that created the objects current, and
/// GLES3::LoadGLFunctions done. No call checks for GL errors.
struct OVR_EXPORT GlGeometry {
    uint32_t vertexBuffer = 0;
    uint32_t indexBuffer = 0;
    uint32_t vertexArrayObject = 0;
    int32_t primitiveType = GL_TRIANGLES;
    int32_t vertexCount = 0;
    int32_t indexCount = 0;
    Bounds3<float> localBounds;

    /// Makes the GL objects. Free a live record first: its objects would be lost.
    /// Leaves: vertex array 0 bound with attributes 0 to 8 disabled, the vertex buffer bound to
    /// GL_ARRAY_BUFFER. Throws std::bad_alloc without memory for the packed vertices.
    void Create(const VertexAttribs& attribs, const Array<unsigned short>& indices);

    /// Replaces the vertices of a live record; indices and primitive type stay.
    /// Leaves the record's vertex array and vertex buffer bound.
    void Update(const VertexAttribs& attribs, bool updateBounds);

    /// Draws all indices with the current program. Leaves the record's vertex array bound.
    void Draw() const;

    /// Deletes the GL objects and empties the record, but for its primitive type. May be repeated.
    void Free();
};

/// Appends \p attrib to \p packed and points the attribute of the bound vertex array at it, in the
/// buffer bound to GL_ARRAY_BUFFER; an empty \p attrib disables the attribute instead.
template <typename T>
OVR_EXPORT void PackVertexAttribute(Array<unsigned char>& packed, const Array<T>& attrib,
                                    int glLocation, int glType, int glComponents);

extern template void PackVertexAttribute(Array<unsigned char>&, const Array<Vector2<float>>&, int,
                                         int, int);
extern template void PackVertexAttribute(Array<unsigned char>&, const Array<Vector3<float>>&, int,
                                         int, int);
extern template void PackVertexAttribute(Array<unsigned char>&, const Array<Vector4<float>>&, int,
                                         int, int);
extern template void PackVertexAttribute(Array<unsigned char>&, const Array<Vector4<int>>&, int,
                                         int, int);

}  // namespace OVR
