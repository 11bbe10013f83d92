#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

#include "kernel/GlGeometry.h"

using Floats = std::vector<float>;
using Indices = std::vector<uint16_t>;

/// One attribute of a vertex array, as GL holds it.
struct AttributeLayout {
    bool enabled;
    GLint components;
    GLint type;
    GLint stride;
    GLint normalized;
    uintptr_t offset;
};

/// What GL holds of a mesh.
struct MeshOnGpu {
    std::array<AttributeLayout, 9> layout;
    std::vector<OVR::Vector3<float>> position;
    std::vector<OVR::Vector2<float>> texCoord;
    std::vector<OVR::Vector4<float>> vertexColor;
    Indices indices;
    GLint vertexBytes;
};

using Triangle = std::array<OVR::Vector3<float>, 3>;

/// Reads a mesh's buffers back from GL and frees the mesh.
MeshOnGpu Take(OVR::GlGeometry geometry);

Indices FirstIndices(const MeshOnGpu& mesh, size_t count);

/// The components of all \p elements, one after the other.
template <typename T>
Floats FloatsOf(const std::vector<T>& elements) {
    Floats floats(elements.size() * sizeof(T) / sizeof(float));
    std::memcpy(floats.data(), elements.data(), floats.size() * sizeof(float));
    return floats;
}

/// For comparisons that tell 0 from -0.
template <typename T>
auto Bits(const T& value) {
    std::array<uint32_t, sizeof(T) / sizeof(uint32_t)> bits{};
    std::memcpy(bits.data(), &value, sizeof(value));
    return bits;
}

OVR::Vector3<float> Minus(const OVR::Vector3<float>& a, const OVR::Vector3<float>& b);
float Dot(const OVR::Vector3<float>& a, const OVR::Vector3<float>& b);
float Length(const OVR::Vector3<float>& v);
OVR::Vector3<float> Centroid(const Triangle& triangle);
/// The side that winds counter-clockwise; as long as twice the triangle's area.
OVR::Vector3<float> FaceNormal(const Triangle& triangle);

std::vector<Triangle> TrianglesOf(const MeshOnGpu& mesh);
