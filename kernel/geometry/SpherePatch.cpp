#include "kernel/geometry/SpherePatch.h"

#include "kernel/geometry/private/Meridians.h"

namespace OVR {
namespace {

constexpr float kRadius = 100.0F;  // Frozen: fixed radius
constexpr Grid kGrid{64, 64};

float Fraction(uint32_t step) {
    return static_cast<float>(step) * 0.015625F;
}

/// From -0.5 to 0.5.
// Frozen: centered texture coordinates
float CenteredFraction(uint32_t step) {
    return Fraction(step) - 0.5F;
}

}  // namespace

GlGeometry BuildSpherePatch(float fov) {
    const Meridians meridians =
        MakeMeridians(kGrid, [fov](uint32_t x) { return CenteredFraction(x) * fov; });
    Mesh mesh(kGrid.VertexCount(), kGrid.IndexCount());
    for (uint32_t y = 0; y <= kGrid.vertical; ++y) {
        FillPositionRow(mesh.attribs, meridians, y,
                        ParallelOfSphere(CenteredFraction(y) * fov, kRadius));
        FillTexCoordRow(mesh.attribs, kGrid, y, CenteredFraction, 0.5F - Fraction(y));
    }
    std::fill(mesh.attribs.vertexColor.begin(), mesh.attribs.vertexColor.end(), kOpaqueWhite);
    WriteCellsByColumn(mesh.indices.Data, kGrid);
    return Upload(mesh);
}

}  // namespace OVR
