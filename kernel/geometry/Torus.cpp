#include "kernel/geometry/Torus.h"

#include "kernel/Math.h"
#include "kernel/geometry/private/Meridians.h"

namespace OVR {
namespace {

constexpr float kPi = Math<float>::Pi;

float Fraction(uint32_t step, uint32_t steps) {
    return static_cast<float>(step) / static_cast<float>(steps);
}

/// From -π on. The last step is the first again.
float Angle(uint32_t step, uint32_t steps) {
    return Fraction(step == steps ? 0 : step, steps) * (kPi + kPi) - kPi;
}

void FillRow(VertexAttribs& attribs, const Grid& grid, uint32_t y, const Meridians& meridians,
             const Parallel& parallel, float uScale, float v) {
    FillPositionRow(attribs, meridians, y, parallel);
    FillTexCoordRow(
        attribs, grid, y,
        [&grid, uScale](uint32_t x) { return Fraction(x, grid.horizontal) * uScale; }, v);
}

}  // namespace

GlGeometry BuildTorus(float radius, float tubeRadius, unsigned short horizontal,
                      unsigned short vertical, float uScale, float vScale) {
    const Grid grid{horizontal, vertical};
    const Meridians meridians =
        MakeMeridians(grid, [&grid](uint32_t x) { return kPi * 0.5F - Angle(x, grid.horizontal); });
    Mesh mesh(grid.VertexCount(), grid.IndexCount());
    for (uint32_t y = 0; y <= grid.vertical; ++y) {
        const float angle = Angle(y, grid.vertical);
        FillRow(mesh.attribs, grid, y, meridians,
                {radius + std::cos(angle) * tubeRadius, std::sin(angle) * tubeRadius}, uScale,
                Fraction(grid.vertical - y, grid.vertical) * vScale);
    }
    std::fill(mesh.attribs.vertexColor.begin(), mesh.attribs.vertexColor.end(), kOpaqueWhite);
    WriteCellsByRow(mesh.indices.Data, grid);
    return Upload(mesh);
}

}  // namespace OVR
