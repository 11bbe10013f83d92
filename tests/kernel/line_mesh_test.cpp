#include <gtest/gtest.h>

#include <cmath>

#include "GlTest.h"
#include "MeshReader.h"
#include "kernel/geometry/CalibrationLines.h"
#include "kernel/geometry/UnitCubeLines.h"

namespace {

class LineMesh : public GlTest {};

void ExpectVertex(const MeshOnGpu& mesh, size_t vertex, const OVR::Vector3<float>& position,
                  const OVR::Vector2<float>& texCoord) {
    EXPECT_EQ(Bits(mesh.position[vertex]), Bits(position)) << vertex;
    EXPECT_EQ(Bits(mesh.texCoord[vertex]), Bits(texCoord)) << vertex;
}

TEST_F(LineMesh, CubeHasItsTwelveEdges) {
    OVR::GlGeometry geometry = OVR::BuildUnitCubeLines();
    EXPECT_EQ(geometry.primitiveType, GL_LINES);
    const MeshOnGpu mesh = Take(geometry);
    ASSERT_EQ(mesh.position.size(), 8U);
    EXPECT_EQ(mesh.indices,
              (Indices{0, 1, 1, 3, 3, 2, 2, 0, 4, 5, 5, 7, 7, 6, 6, 4, 0, 4, 1, 5, 3, 7, 2, 6}));
    EXPECT_EQ(Length(Minus(mesh.position[0], mesh.position[7])), std::sqrt(3.0F));
}

TEST_F(LineMesh, CalibrationIsACrossWithoutExtraLines) {
    OVR::GlGeometry geometry = OVR::BuildCalibrationLines(0, false);
    EXPECT_EQ(geometry.primitiveType, GL_TRIANGLES);
    const MeshOnGpu mesh = Take(geometry);
    EXPECT_EQ(FloatsOf(mesh.position),
              (Floats{-1, 0, -1.001F, 0, -1, -1.001F, 1, 0, -1.001F, 0, 1, -1.001F}));
    EXPECT_EQ(FloatsOf(mesh.texCoord), (Floats{0, 0.5F, 0, 0.5F, 1, 0.5F, 1, 0.5F}));
    EXPECT_EQ(mesh.indices, (Indices{0, 2, 1, 3}));
}

TEST_F(LineMesh, CalibrationShortensAllButTheCenterToTicks) {
    const MeshOnGpu ticks = Take(OVR::BuildCalibrationLines(1, false));
    ASSERT_EQ(ticks.position.size(), 12U);
    ExpectVertex(ticks, 0, {-0.02F, -1, -1.001F}, {0, 1});
    ExpectVertex(ticks, 1, {-1, -0.02F, -1.001F}, {0, 1});
    ExpectVertex(ticks, 6, {1, 0, -1.001F}, {1, 0.5F});
    ExpectVertex(ticks, 11, {1, 0.02F, -1.001F}, {1, 0});
    EXPECT_EQ(ticks.indices, (Indices{0, 2, 1, 3, 4, 6, 5, 7, 8, 10, 9, 11}));

    const MeshOnGpu grid = Take(OVR::BuildCalibrationLines(1, true));
    ExpectVertex(grid, 0, {-1, -1, -1.001F}, {0, 1});
    ExpectVertex(grid, 11, {1, 1, -1.001F}, {1, 0});
}

TEST_F(LineMesh, CalibrationIndicesWrapAt16Bits) {
    const MeshOnGpu largest = Take(OVR::BuildCalibrationLines(8191, true));
    EXPECT_EQ(largest.indices.size(), 65532U);
    EXPECT_EQ(largest.indices.back(), 65531);
    const MeshOnGpu wrapped = Take(OVR::BuildCalibrationLines(8192, true));
    EXPECT_EQ(wrapped.indices.back(), 3);
}

}  // namespace
