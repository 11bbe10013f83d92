#include <gtest/gtest.h>

#include "GlTest.h"
#include "MeshReader.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "kernel/geometry/TesselatedQuadInside.h"
#include "kernel/geometry/Vignette.h"

namespace {

class PlaneMesh : public GlTest {};

/// The triangles wind counter-clockwise, seen from +z.
void ExpectFront(const MeshOnGpu& mesh) {
    for (const Triangle& triangle : TrianglesOf(mesh)) {
        ASSERT_GT(FaceNormal(triangle).z, 0);
    }
}

Indices CellAt(const MeshOnGpu& mesh, size_t cell) {
    const auto first = mesh.indices.begin() + static_cast<std::ptrdiff_t>(cell * 6);
    return {first, first + 6};
}

TEST_F(PlaneMesh, QuadOfOneCell) {
    OVR::GlGeometry geometry = OVR::BuildTesselatedQuad(1, 1, true);
    EXPECT_EQ(geometry.primitiveType, GL_TRIANGLES);
    EXPECT_EQ(geometry.localBounds.Min.x, -1);
    EXPECT_EQ(geometry.localBounds.Max.y, 1);
    const MeshOnGpu mesh = Take(geometry);
    EXPECT_EQ(FloatsOf(mesh.position), (Floats{-1, -1, 0, 1, -1, 0, -1, 1, 0, 1, 1, 0}));
    EXPECT_EQ(FloatsOf(mesh.texCoord), (Floats{0, 1, 1, 1, 0, 0, 1, 0}));
    EXPECT_EQ(FloatsOf(mesh.vertexColor), (Floats{1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0}));
    EXPECT_EQ(mesh.indices, (Indices{0, 3, 2, 0, 1, 3, 3, 1, 2, 2, 1, 0}));
}

TEST_F(PlaneMesh, QuadSplitsItsFirstAndLastCellTowardsTheCenter) {
    EXPECT_EQ(Take(OVR::BuildTesselatedQuad(2, 1, false)).indices,
              (Indices{0, 4, 3, 0, 1, 4, 1, 5, 4, 1, 2, 5}));
    const MeshOnGpu grid = Take(OVR::BuildTesselatedQuad(2, 2, false));
    EXPECT_EQ(Bits(grid.position[4]), Bits(OVR::Vector3<float>{0, 0, 0}));
    EXPECT_EQ(Bits(grid.texCoord[5]), Bits(OVR::Vector2<float>{1, 0.5F}));
    EXPECT_EQ(grid.indices,
              (Indices{0, 4, 3, 0, 1, 4, 1, 2, 4, 4, 2, 5, 3, 4, 6, 6, 4, 7, 4, 8, 7, 4, 5, 8}));
    for (size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(grid.vertexColor[i].w, i == 4 ? 1 : 0) << i;
    }
}

TEST_F(PlaneMesh, QuadIndicesWrapAt16Bits) {
    const MeshOnGpu largest = Take(OVR::BuildTesselatedQuad(255, 255, false));
    ExpectFront(largest);
    EXPECT_EQ(largest.indices.back(), 65535);
    const MeshOnGpu wrapped = Take(OVR::BuildTesselatedQuad(256, 255, false));
    EXPECT_EQ(wrapped.position.size(), size_t{257} * 256);
    EXPECT_EQ(wrapped.indices.back(), 255);
}

TEST_F(PlaneMesh, InnerQuadHangsBelowItsAnchor) {
    const MeshOnGpu mesh = Take(OVR::BuildTesselatedQuadInside(0.25F, -0.5F, false));
    const float left = 0.25F - 0.05F;
    const float right = 0.25F + 0.05F;
    const float top = -0.5F - 0.2F;
    const float bottom = -0.5F - 0.4F;
    EXPECT_EQ(FloatsOf(mesh.position),
              (Floats{left, top, 0, right, top, 0, left, bottom, 0, right, bottom, 0}));
    EXPECT_EQ(FloatsOf(mesh.texCoord), (Floats{0, 1, 1, 1, 0, 0, 1, 0}));
    EXPECT_EQ(FloatsOf(mesh.vertexColor), (Floats{1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0}));
    EXPECT_EQ(mesh.indices, (Indices{0, 3, 2, 0, 1, 3}));
    EXPECT_EQ(Take(OVR::BuildTesselatedQuadInside(0, 0, true)).indices,
              (Indices{0, 3, 2, 0, 1, 3, 3, 1, 2, 2, 1, 0}));
}

TEST_F(PlaneMesh, VignetteFramesTheOpening) {
    const MeshOnGpu mesh = Take(OVR::BuildVignette(0.5F, 0.25F));
    ASSERT_EQ(mesh.position.size(), 36U);
    ASSERT_EQ(mesh.indices.size(), 144U);
    ExpectFront(mesh);
    EXPECT_EQ(Bits(mesh.position[0].x)[0], 0xBF8020C5U);
    EXPECT_EQ(Bits(mesh.position[35].y)[0], 0x3F8020C5U);
    EXPECT_EQ(mesh.position[1].x, 0.5F * 0.25F - 1);
    EXPECT_EQ(mesh.position[24].y, 1 - 0.25F * 0.25F);
    // Corners are split towards the center.
    EXPECT_EQ(CellAt(mesh, 0), (Indices{0, 7, 6, 0, 1, 7}));
    EXPECT_EQ(CellAt(mesh, 4), (Indices{4, 5, 10, 10, 5, 11}));
    // Cell 12 would be the center: its right neighbor stands there.
    EXPECT_EQ(CellAt(mesh, 12), (Indices{15, 16, 21, 21, 16, 22}));
    EXPECT_EQ(CellAt(mesh, 23), (Indices{28, 35, 34, 28, 29, 35}));
    for (size_t i = 0; i < 36; ++i) {
        const bool white = i == 14 || i == 15 || i == 20 || i == 21;
        ASSERT_EQ(mesh.vertexColor[i].x, white ? 1 : 0) << i;
        ASSERT_EQ(mesh.vertexColor[i].w, 1) << i;
        ASSERT_EQ(Bits(mesh.texCoord[i]), Bits(OVR::Vector2<float>{0, 0})) << i;
    }
}

}  // namespace
