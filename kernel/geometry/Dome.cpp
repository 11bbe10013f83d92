#include "kernel/geometry/Dome.h"

#include "kernel/Math.h"
#include "kernel/geometry/private/Meridians.h"

namespace OVR {
namespace {

constexpr float kPi = Math<float>::Pi;
constexpr float kRadius = 100.0F;  // Frozen: fixed radius
constexpr Grid kGrid{64, 32};

float ColumnFraction(uint32_t x) {
    return static_cast<float>(x) * 0.015625F;
}

// Frozen: axes and seams
float Longitude(uint32_t x) {
    return (kPi + kPi) * (ColumnFraction(x % kGrid.horizontal) + 0.5F);
}

void FillRow(VertexAttribs& attribs, uint32_t y, const Meridians& meridians, float latRads,
             float uScale, float vScale) {
    const float yf = static_cast<float>(y) * 0.03125F;
    const float latitude = (kPi - yf * latRads) - kPi * 0.5F;
    FillPositionRow(attribs, meridians, y, ParallelOfSphere(latitude, kRadius));
    FillTexCoordRow(
        attribs, kGrid, y, [uScale](uint32_t x) { return ColumnFraction(x) * uScale; },
        (1.0F - yf) * vScale);
}

}  // namespace

GlGeometry BuildDome(float latRads, float uScale, float vScale) {
    const Meridians meridians = MakeMeridians(kGrid, Longitude);
    Mesh mesh(kGrid.VertexCount(), kGrid.IndexCount());
    for (uint32_t y = 0; y <= kGrid.vertical; ++y) {
        FillRow(mesh.attribs, y, meridians, latRads, uScale, vScale);
    }
    std::fill(mesh.attribs.vertexColor.begin(), mesh.attribs.vertexColor.end(), kOpaqueWhite);
    WriteCellsByColumn(mesh.indices.Data, kGrid);
    return Upload(mesh);
}

}  // namespace OVR
