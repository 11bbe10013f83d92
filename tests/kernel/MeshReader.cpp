#include "MeshReader.h"

#include <cmath>
#include <cstring>

namespace {

GLint AttributeParameter(GLuint location, GLenum name) {
    GLint value = 0;
    GLES3::glGetVertexAttribiv(location, name, &value);
    return value;
}

AttributeLayout ReadLayout(GLuint location) {
    void* offset = nullptr;
    GLES3::glGetVertexAttribPointerv(location, GL_VERTEX_ATTRIB_ARRAY_POINTER, &offset);
    return {AttributeParameter(location, GL_VERTEX_ATTRIB_ARRAY_ENABLED) != 0,
            AttributeParameter(location, GL_VERTEX_ATTRIB_ARRAY_SIZE),
            AttributeParameter(location, GL_VERTEX_ATTRIB_ARRAY_TYPE),
            AttributeParameter(location, GL_VERTEX_ATTRIB_ARRAY_STRIDE),
            AttributeParameter(location, GL_VERTEX_ATTRIB_ARRAY_NORMALIZED),
            reinterpret_cast<uintptr_t>(offset)};
}

GLint BufferSize(GLenum target) {
    GLint bytes = 0;
    GLES3::glGetBufferParameteriv(target, GL_BUFFER_SIZE, &bytes);
    return bytes;
}

template <typename T>
std::vector<T> ReadBuffer(GLenum target, uintptr_t offset, size_t count) {
    std::vector<T> elements(count);
    if (count == 0) {
        return elements;
    }
    const auto bytes = static_cast<GLsizeiptr>(count * sizeof(T));
    const void* mapped =
        GLES3::glMapBufferRange(target, static_cast<GLintptr>(offset), bytes, GL_MAP_READ_BIT);
    std::memcpy(elements.data(), mapped, count * sizeof(T));
    GLES3::glUnmapBuffer(target);
    return elements;
}

template <typename T>
std::vector<T> ReadAttribute(const AttributeLayout& layout, int vertexCount) {
    const int count = layout.enabled ? vertexCount : 0;
    return ReadBuffer<T>(GL_ARRAY_BUFFER, layout.offset, static_cast<size_t>(count));
}

OVR::Vector3<float> Cross(const OVR::Vector3<float>& a, const OVR::Vector3<float>& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

}  // namespace

MeshOnGpu Take(OVR::GlGeometry geometry) {
    MeshOnGpu mesh{};
    GLES3::glBindVertexArray(geometry.vertexArrayObject);
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, geometry.vertexBuffer);
    for (GLuint location = 0; location < mesh.layout.size(); ++location) {
        mesh.layout[location] = ReadLayout(location);
    }
    mesh.vertexBytes = BufferSize(GL_ARRAY_BUFFER);
    mesh.position = ReadAttribute<OVR::Vector3<float>>(mesh.layout[OVR::VERTEX_ATTRIBUTE_POSITION],
                                                       geometry.vertexCount);
    mesh.texCoord = ReadAttribute<OVR::Vector2<float>>(mesh.layout[OVR::VERTEX_ATTRIBUTE_UV0],
                                                       geometry.vertexCount);
    mesh.vertexColor = ReadAttribute<OVR::Vector4<float>>(mesh.layout[OVR::VERTEX_ATTRIBUTE_COLOR],
                                                          geometry.vertexCount);
    mesh.indices = ReadBuffer<uint16_t>(
        GL_ELEMENT_ARRAY_BUFFER, 0,
        static_cast<size_t>(BufferSize(GL_ELEMENT_ARRAY_BUFFER)) / sizeof(uint16_t));
    GLES3::glBindVertexArray(0);
    geometry.Free();
    return mesh;
}

Indices FirstIndices(const MeshOnGpu& mesh, size_t count) {
    return {mesh.indices.begin(), mesh.indices.begin() + static_cast<std::ptrdiff_t>(count)};
}

OVR::Vector3<float> Minus(const OVR::Vector3<float>& a, const OVR::Vector3<float>& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

float Dot(const OVR::Vector3<float>& a, const OVR::Vector3<float>& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

float Length(const OVR::Vector3<float>& v) {
    return std::sqrt(Dot(v, v));
}

OVR::Vector3<float> Centroid(const Triangle& t) {
    return {(t[0].x + t[1].x + t[2].x) / 3, (t[0].y + t[1].y + t[2].y) / 3,
            (t[0].z + t[1].z + t[2].z) / 3};
}

OVR::Vector3<float> FaceNormal(const Triangle& t) {
    return Cross(Minus(t[1], t[0]), Minus(t[2], t[0]));
}

std::vector<Triangle> TrianglesOf(const MeshOnGpu& mesh) {
    std::vector<Triangle> triangles(mesh.indices.size() / 3);
    for (size_t i = 0; i < triangles.size() * 3; ++i) {
        triangles[i / 3][i % 3] = mesh.position.at(mesh.indices[i]);
    }
    return triangles;
}
