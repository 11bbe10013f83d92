#include <gtest/gtest.h>

#include <cstring>

#include "GlTest.h"
#include "MeshReader.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "kernel/geometry/Vignette.h"

namespace {

class PlaneMesh : public GlTest {};

uint32_t Bits(float value) {
    uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

/// Area with the sign of the winding seen from +z.
double SignedArea(const std::vector<Triangle>& triangles) {
    double area = 0;
    for (const Triangle& triangle : triangles) {
        area += FaceNormal(triangle).z / 2;
    }
    return area;
}

void ExpectAllCounterClockwise(const std::vector<Triangle>& triangles) {
    for (const Triangle& triangle : triangles) {
        ASSERT_GT(FaceNormal(triangle).z, 0);
    }
}

using Cell = std::vector<uint16_t>;

Cell CellAt(const MeshOnGpu& mesh, size_t cell) {
    const auto first = mesh.indices.begin() + static_cast<std::ptrdiff_t>(cell * 6);
    return {first, first + 6};
}

TEST_F(PlaneMesh, QuadCoversTheSquareOncePerSide) {
    const MeshOnGpu front = Take(OVR::BuildTesselatedQuad(7, 5, false));
    ExpectAllCounterClockwise(TrianglesOf(front));
    EXPECT_NEAR(AreaOf(TrianglesOf(front)), 4, 1e-5);
    const MeshOnGpu both = Take(OVR::BuildTesselatedQuad(7, 5, true));
    EXPECT_EQ(both.indices.size(), 2 * front.indices.size());
    EXPECT_NEAR(AreaOf(TrianglesOf(both)), 8, 1e-5);
    EXPECT_NEAR(SignedArea(TrianglesOf(both)), 0, 1e-5);
}

TEST_F(PlaneMesh, QuadIndicesWrapAt16Bits) {
    const MeshOnGpu largest = Take(OVR::BuildTesselatedQuad(255, 255, false));
    EXPECT_NEAR(AreaOf(TrianglesOf(largest)), 4, 1e-4);
    EXPECT_EQ(largest.indices.back(), 65535);
    const MeshOnGpu wrapped = Take(OVR::BuildTesselatedQuad(256, 255, false));
    EXPECT_EQ(wrapped.position.size(), size_t{257} * 256);
    EXPECT_EQ(wrapped.indices.back(), 255);
}

TEST_F(PlaneMesh, VignetteFramesTheOpening) {
    const MeshOnGpu mesh = Take(OVR::BuildVignette(0.5F, 0.25F));
    ASSERT_EQ(mesh.position.size(), 36U);
    ASSERT_EQ(mesh.indices.size(), 144U);
    const std::vector<Triangle> triangles = TrianglesOf(mesh);
    ExpectAllCounterClockwise(triangles);
    EXPECT_NEAR(AreaOf(triangles), 2.002 * 2.002 - 1.0 * 1.5, 1e-5);
    for (const Triangle& triangle : triangles) {
        const OVR::Vector3<float> c = Centroid(triangle);
        EXPECT_FALSE(c.x > -0.5F && c.x < 0.5F && c.y > -0.75F && c.y < 0.75F);
    }
    EXPECT_EQ(Bits(mesh.position[0].x), 0xBF8020C5U);
    EXPECT_EQ(Bits(mesh.position[35].y), 0x3F8020C5U);
    EXPECT_EQ(mesh.position[1].x, 0.5F * 0.25F - 1);
    EXPECT_EQ(mesh.position[24].y, 1 - 0.25F * 0.25F);
}

TEST_F(PlaneMesh, VignetteSplitsItsCornersTowardsTheCentre) {
    const MeshOnGpu mesh = Take(OVR::BuildVignette(0.5F, 0.5F));
    EXPECT_EQ(CellAt(mesh, 0), (Cell{0, 7, 6, 0, 1, 7}));
    EXPECT_EQ(CellAt(mesh, 1), (Cell{1, 2, 7, 7, 2, 8}));
    EXPECT_EQ(CellAt(mesh, 4), (Cell{4, 5, 10, 10, 5, 11}));
    EXPECT_EQ(CellAt(mesh, 6), (Cell{7, 14, 13, 7, 8, 14}));
    // Cell 12 would be the centre: what stands there is its right neighbour.
    EXPECT_EQ(CellAt(mesh, 12), (Cell{15, 16, 21, 21, 16, 22}));
    EXPECT_EQ(CellAt(mesh, 23), (Cell{28, 35, 34, 28, 29, 35}));
}

TEST_F(PlaneMesh, VignetteIsWhiteAroundTheOpeningOnly) {
    const MeshOnGpu mesh = Take(OVR::BuildVignette(0, 0));
    for (size_t i = 0; i < 36; ++i) {
        const bool white = i == 14 || i == 15 || i == 20 || i == 21;
        EXPECT_EQ(mesh.vertexColor[i].x, white ? 1 : 0) << i;
        EXPECT_EQ(mesh.vertexColor[i].w, 1) << i;
        EXPECT_EQ(mesh.texCoord[i].x, 0) << i;
    }
    // Without width the stops meet at the edge.
    EXPECT_EQ(mesh.position[1].x, -1);
    EXPECT_EQ(mesh.position[2].x, -1);
    EXPECT_EQ(mesh.position[3].x, 1);
    EXPECT_EQ(mesh.indices.size(), 144U);
}

}  // namespace
