#pragma once

#include "kernel/Array.h"
#include "kernel/Vector.h"

namespace OVR {

/// Locations of the vertex attributes in programs and in meshes.
enum VertexAttributeLocation : int {
    VERTEX_ATTRIBUTE_POSITION = 0,       ///< "Position"
    VERTEX_ATTRIBUTE_NORMAL = 1,         ///< "Normal"
    VERTEX_ATTRIBUTE_TANGENT = 2,        ///< "Tangent"
    VERTEX_ATTRIBUTE_BINORMAL = 3,       ///< "Binormal"
    VERTEX_ATTRIBUTE_COLOR = 4,          ///< "VertexColor"
    VERTEX_ATTRIBUTE_UV0 = 5,            ///< "TexCoord"
    VERTEX_ATTRIBUTE_UV1 = 6,            ///< "TexCoord1"
    VERTEX_ATTRIBUTE_JOINT_INDICES = 7,  ///< "JointIndices"
    VERTEX_ATTRIBUTE_JOINT_WEIGHTS = 8,  ///< "JointWeights"
    VERTEX_ATTRIBUTE_FONT_PARMS = 9,     ///< "FontParms", in programs only
};

/// A mesh on the CPU, one array per attribute. An array is empty or as long as \ref position.
struct VertexAttribs {
    Array<Vector3<float>> position;
    Array<Vector3<float>> normal;
    Array<Vector3<float>> tangent;
    Array<Vector3<float>> binormal;
    Array<Vector4<float>> vertexColor;
    Array<Vector2<float>> texCoord;
    Array<Vector2<float>> texCoord1;
    Array<Vector4<int>> jointIndices;
    Array<Vector4<float>> jointWeights;
};

}  // namespace OVR
