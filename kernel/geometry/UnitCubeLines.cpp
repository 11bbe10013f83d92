#include "kernel/geometry/UnitCubeLines.h"

#include <algorithm>
#include <iterator>

#include "kernel/geometry/private/Mesh.h"

namespace OVR {
namespace {

constexpr uint32_t kCorners = 8;

constexpr unsigned short kEdges[] = {
    0, 1, 1, 3, 3, 2, 2, 0,  // z = 0
    4, 5, 5, 7, 7, 6, 6, 4,  // z = 1
    0, 4, 1, 5, 3, 7, 2, 6,  // along z
};

/// 0 or 1, as \p bit of \p corner is.
float Coordinate(uint32_t corner, uint32_t bit) {
    return static_cast<float>(corner >> bit & 1U);
}

}  // namespace

GlGeometry BuildUnitCubeLines() {
    VertexAttribs attribs;
    SizeOnce(attribs.position, kCorners);
    for (uint32_t k = 0; k < kCorners; ++k) {
        attribs.position[k] = {Coordinate(k, 0), Coordinate(k, 1), Coordinate(k, 2)};
    }
    Array<unsigned short> indices;
    SizeOnce(indices, std::size(kEdges));
    std::copy(std::begin(kEdges), std::end(kEdges), indices.Data);
    GlGeometry geometry;
    geometry.Create(attribs, indices);
    geometry.primitiveType = GL_LINES;
    return geometry;
}

}  // namespace OVR
