#include "kernel/GlGeometry.h"

#include <cstring>
#include <new>

namespace OVR {
namespace {

/// Each attribute is one block; the blocks follow one another by location.
// Frozen: joint indices
void PackVertexAttribs(Array<unsigned char>& packed, const VertexAttribs& attribs) {
    PackVertexAttribute(packed, attribs.position, VERTEX_ATTRIBUTE_POSITION, GL_FLOAT, 3);
    PackVertexAttribute(packed, attribs.normal, VERTEX_ATTRIBUTE_NORMAL, GL_FLOAT, 3);
    PackVertexAttribute(packed, attribs.tangent, VERTEX_ATTRIBUTE_TANGENT, GL_FLOAT, 3);
    PackVertexAttribute(packed, attribs.binormal, VERTEX_ATTRIBUTE_BINORMAL, GL_FLOAT, 3);
    PackVertexAttribute(packed, attribs.vertexColor, VERTEX_ATTRIBUTE_COLOR, GL_FLOAT, 4);
    PackVertexAttribute(packed, attribs.texCoord, VERTEX_ATTRIBUTE_UV0, GL_FLOAT, 2);
    PackVertexAttribute(packed, attribs.texCoord1, VERTEX_ATTRIBUTE_UV1, GL_FLOAT, 2);
    PackVertexAttribute(packed, attribs.jointIndices, VERTEX_ATTRIBUTE_JOINT_INDICES, GL_INT, 4);
    PackVertexAttribute(packed, attribs.jointWeights, VERTEX_ATTRIBUTE_JOINT_WEIGHTS, GL_FLOAT, 4);
}

template <typename... T>
uint64_t BytesOf(const Array<T>&... attribs) {
    return (... + (uint64_t{attribs.Size} * sizeof(T)));
}

/// Room for all attributes: packing them between GL calls then cannot fail.
Array<unsigned char> RoomFor(const VertexAttribs& a) {
    const uint64_t bytes = BytesOf(a.position, a.normal, a.tangent, a.binormal, a.vertexColor,
                                   a.texCoord, a.texCoord1, a.jointIndices, a.jointWeights);
    Array<unsigned char> packed;
    packed.Reserve(bytes > 0 ? bytes + 1 : 0);  // Resize grows what is full.
    return packed;
}

/// Fills the bound GL_ARRAY_BUFFER. Updates are rare, so they are static, too.
void UploadVertices(const VertexAttribs& attribs, Array<unsigned char>& packed) {
    PackVertexAttribs(packed, attribs);
    GLES3::glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(packed.Size), packed.Data,
                        GL_STATIC_DRAW);
}

void UploadIndices(const Array<unsigned short>& indices) {
    GLES3::glBufferData(GL_ELEMENT_ARRAY_BUFFER,
                        static_cast<GLsizeiptr>(indices.Size * sizeof(unsigned short)),
                        indices.Data, GL_STATIC_DRAW);
}

void ComputeBounds(Bounds3<float>& bounds, const Array<Vector3<float>>& positions) {
    bounds.Clear();
    for (const Vector3<float>& position : positions) {
        bounds.AddPoint(position);
    }
}

}  // namespace

template <typename T>
void PackVertexAttribute(Array<unsigned char>& packed, const Array<T>& attrib, int glLocation,
                         int glType, int glComponents) {
    const auto location = static_cast<GLuint>(glLocation);
    if (attrib.IsEmpty()) {
        GLES3::glDisableVertexAttribArray(location);
        return;
    }
    const uintptr_t offset = packed.Size;
    packed.Resize(packed.Size + BytesOf(attrib));
    std::memcpy(packed.Data + offset, attrib.Data, packed.Size - offset);
    GLES3::glEnableVertexAttribArray(location);
    // GL takes the offset as a pointer.
    const auto* start = reinterpret_cast<const void*>(offset);
    GLES3::glVertexAttribPointer(location, glComponents, static_cast<GLenum>(glType), GL_FALSE,
                                 sizeof(T), start);
}

template OVR_EXPORT void PackVertexAttribute(Array<unsigned char>&, const Array<Vector2<float>>&,
                                             int, int, int);
template OVR_EXPORT void PackVertexAttribute(Array<unsigned char>&, const Array<Vector3<float>>&,
                                             int, int, int);
template OVR_EXPORT void PackVertexAttribute(Array<unsigned char>&, const Array<Vector4<float>>&,
                                             int, int, int);
template OVR_EXPORT void PackVertexAttribute(Array<unsigned char>&, const Array<Vector4<int>>&, int,
                                             int, int);

void GlGeometry::Create(const VertexAttribs& attribs, const Array<unsigned short>& indices) {
    if (indices.Size > INT32_MAX) {
        throw std::bad_alloc();
    }
    Array<unsigned char> packed = RoomFor(attribs);
    vertexCount = static_cast<int32_t>(attribs.position.Size);
    indexCount = static_cast<int32_t>(indices.Size);

    GLES3::glGenBuffers(1, &vertexBuffer);
    GLES3::glGenBuffers(1, &indexBuffer);
    GLES3::glGenVertexArrays(1, &vertexArrayObject);

    GLES3::glBindVertexArray(vertexArrayObject);
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    UploadVertices(attribs, packed);
    GLES3::glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    UploadIndices(indices);

    GLES3::glBindVertexArray(0);
    for (GLuint location = 0; location <= VERTEX_ATTRIBUTE_JOINT_WEIGHTS; ++location) {
        GLES3::glDisableVertexAttribArray(location);
    }
    ComputeBounds(localBounds, attribs.position);
}

void GlGeometry::Update(const VertexAttribs& attribs, bool updateBounds) {
    Array<unsigned char> packed = RoomFor(attribs);
    vertexCount = static_cast<int32_t>(attribs.position.Size);
    GLES3::glBindVertexArray(vertexArrayObject);
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer);
    UploadVertices(attribs, packed);
    if (updateBounds) {
        ComputeBounds(localBounds, attribs.position);
    }
}

void GlGeometry::Draw() const {
    GLES3::glBindVertexArray(vertexArrayObject);
    GLES3::glDrawElements(static_cast<GLenum>(primitiveType), indexCount, GL_UNSIGNED_SHORT,
                          nullptr);
}

void GlGeometry::Free() {
    GLES3::glDeleteVertexArrays(1, &vertexArrayObject);
    GLES3::glDeleteBuffers(1, &indexBuffer);
    GLES3::glDeleteBuffers(1, &vertexBuffer);
    vertexArrayObject = 0;
    indexBuffer = 0;
    vertexBuffer = 0;
    vertexCount = 0;
    indexCount = 0;
    localBounds.Clear();
}

}  // namespace OVR
