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
/// A plain value: copies name the same GL objects, and Free on one of them deletes the objects of
/// all. No call checks for GL errors.
///
/// \thread the one with the GL context of the objects, after GLES3::LoadGLFunctions.
struct OVR_EXPORT GlGeometry {
    uint32_t vertexBuffer = 0;
    uint32_t indexBuffer = 0;
    uint32_t vertexArrayObject = 0;
    int32_t primitiveType = GL_TRIANGLES;
    int32_t vertexCount = 0;
    int32_t indexCount = 0;
    Bounds3<float> localBounds;

    /// Creates the GL objects. Call Free first if the record has objects: Create forgets them.
    /// Afterwards vertex array 0 is bound with attributes 0 to 8 disabled, and the vertex buffer is
    /// bound to GL_ARRAY_BUFFER.
    ///
    /// Throws std::bad_alloc without memory for the packed vertices, if they take 4 GB or more, and
    /// above 2^31 - 1 indices. The record then stays as it was, and no GL call was made.
    void Create(const VertexAttribs& attribs, const Array<unsigned short>& indices);

    /// Replaces the vertices; indices and primitive type stay. Afterwards the record's vertex array
    /// and vertex buffer are bound. Throws std::bad_alloc for the vertices as Create does.
    void Update(const VertexAttribs& attribs, bool updateBounds);

    /// Draws all indices with the current program. Afterwards the record's vertex array is bound.
    void Draw() const;

    /// Deletes the GL objects and clears the record except for its primitive type. A second call
    /// has no effect.
    void Free();
};

/// Appends \p attrib to \p packed, and sets the attribute of the bound vertex array to that place
/// of the buffer bound to GL_ARRAY_BUFFER. An empty \p attrib disables the attribute instead.
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
