#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "kernel/GlGeometry.h"

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
    std::vector<uint16_t> indices;
    GLint vertexBytes;
};

using Triangle = std::array<OVR::Vector3<float>, 3>;

/// Reads a mesh's buffers back from GL.
MeshOnGpu Read(const OVR::GlGeometry& geometry);
/// As Read, and frees the mesh.
MeshOnGpu Take(OVR::GlGeometry geometry);

OVR::Vector3<float> Cross(const OVR::Vector3<float>& a, const OVR::Vector3<float>& b);
float Dot(const OVR::Vector3<float>& a, const OVR::Vector3<float>& b);
float Length(const OVR::Vector3<float>& v);
OVR::Vector3<float> Centroid(const Triangle& triangle);
/// The side that winds counter-clockwise; as long as twice the triangle's area.
OVR::Vector3<float> FaceNormal(const Triangle& triangle);

std::vector<Triangle> TrianglesOf(const MeshOnGpu& mesh);
double AreaOf(const std::vector<Triangle>& triangles);
