#include "kernel/geometry/TesselatedQuadInside.h"

#include <algorithm>

namespace OVR {
namespace {

constexpr float kHalfWidth = 0.05F;
constexpr float kTopOffset = 0.2F;
constexpr float kBottomOffset = 0.4F;

constexpr uint32_t kVertexCount = 4;
constexpr uint32_t kOneSidedIndexCount = 6;
/// The indices of a 1 × 1 grid, corner fix included, then its back side.
constexpr unsigned short kIndices[] = {0, 3, 2, 0, 1, 3, 3, 1, 2, 2, 1, 0};

void FillVertices(VertexAttribs& attribs, float x, float y) {
    attribs.position.Resize(kVertexCount);
    attribs.texCoord.Resize(kVertexCount);
    attribs.vertexColor.Resize(kVertexCount);

    attribs.position[0] = {x - kHalfWidth, y - kTopOffset, 0.0F};
    attribs.position[1] = {x + kHalfWidth, y - kTopOffset, 0.0F};
    attribs.position[2] = {x - kHalfWidth, y - kBottomOffset, 0.0F};
    attribs.position[3] = {x + kHalfWidth, y - kBottomOffset, 0.0F};

    attribs.texCoord[0] = {0.0F, 1.0F};
    attribs.texCoord[1] = {1.0F, 1.0F};
    attribs.texCoord[2] = {0.0F, 0.0F};
    attribs.texCoord[3] = {1.0F, 0.0F};

    std::fill(attribs.vertexColor.begin(), attribs.vertexColor.end(),
              Vector4<float>{1.0F, 1.0F, 1.0F, 0.0F});
}

}  // namespace

GlGeometry BuildTesselatedQuadInside(float x, float y, bool twoSided) {
    VertexAttribs attribs;
    FillVertices(attribs, x, y);

    Array<unsigned short> indices;
    indices.Resize(twoSided ? 2 * kOneSidedIndexCount : kOneSidedIndexCount);
    std::copy_n(kIndices, indices.Size, indices.Data);

    GlGeometry geometry;
    geometry.Create(attribs, indices);
    return geometry;
}

}  // namespace OVR
