#include "kernel/geometry/TesselatedQuadInside.h"

#include <algorithm>
#include <iterator>

#include "kernel/geometry/private/Mesh.h"

namespace OVR {
namespace {

constexpr float kHalfWidth = 0.05F;
constexpr float kTopOffset = 0.2F;
constexpr float kBottomOffset = 0.4F;

/// The front of a 1 × 1 TesselatedQuad, then its back.
// Frozen: upside-down inner quad
constexpr unsigned short kIndices[] = {0, 3, 2, 0, 1, 3, 3, 1, 2, 2, 1, 0};
constexpr Vector2<float> kTexCoords[] = {{0.0F, 1.0F}, {1.0F, 1.0F}, {0.0F, 0.0F}, {1.0F, 0.0F}};

void FillVertices(VertexAttribs& attribs, float x, float y) {
    attribs.position[0] = {x - kHalfWidth, y - kTopOffset, 0.0F};
    attribs.position[1] = {x + kHalfWidth, y - kTopOffset, 0.0F};
    attribs.position[2] = {x - kHalfWidth, y - kBottomOffset, 0.0F};
    attribs.position[3] = {x + kHalfWidth, y - kBottomOffset, 0.0F};
    std::copy(std::begin(kTexCoords), std::end(kTexCoords), attribs.texCoord.begin());
    // Frozen: fading borders
    std::fill(attribs.vertexColor.begin(), attribs.vertexColor.end(), kClearWhite);
}

}  // namespace

GlGeometry BuildTesselatedQuadInside(float x, float y, bool twoSided) {
    Mesh mesh(std::size(kTexCoords), std::size(kIndices) / (twoSided ? 1 : 2));
    FillVertices(mesh.attribs, x, y);
    std::copy_n(kIndices, mesh.indices.Size, mesh.indices.Data);
    return Upload(mesh);
}

}  // namespace OVR
