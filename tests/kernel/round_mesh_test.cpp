#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <functional>

#include "GlTest.h"
#include "MeshReader.h"
#include "kernel/Math.h"
#include "kernel/geometry/Dome.h"
#include "kernel/geometry/Globe.h"
#include "kernel/geometry/SpherePatch.h"
#include "kernel/geometry/TesselatedCylinder.h"
#include "kernel/geometry/Torus.h"

namespace {

using OVR::Vector2;
using OVR::Vector3;

constexpr float kPi = OVR::Math<float>::Pi;
constexpr double kPiD = OVR::Math<double>::Pi;

class RoundMesh : public GlTest {};

template <typename T>
auto Bits(const T& value) {
    std::array<uint32_t, sizeof(T) / sizeof(uint32_t)> bits{};
    std::memcpy(bits.data(), &value, sizeof(value));
    return bits;
}

template <typename T>
bool SameBits(const T& a, const T& b) {
    return Bits(a) == Bits(b);
}

void ExpectAt(const Vector3<float>& actual, const Vector3<float>& expected, float tolerance) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

void ExpectRadius(const MeshOnGpu& mesh, float radius) {
    for (const Vector3<float>& position : mesh.position) {
        ASSERT_NEAR(Length(position), radius, radius * 1e-6F);
    }
}

/// Every index in range is part of what TrianglesOf checks.
void ExpectCounts(const MeshOnGpu& mesh, size_t vertices, size_t indices) {
    ASSERT_EQ(mesh.position.size(), vertices);
    ASSERT_EQ(mesh.texCoord.size(), vertices);
    ASSERT_EQ(mesh.vertexColor.size(), vertices);
    ASSERT_EQ(mesh.indices.size(), indices);
}

void ExpectSeamClosed(const MeshOnGpu& mesh, size_t columns) {
    for (size_t first = 0; first < mesh.position.size(); first += columns) {
        ASSERT_TRUE(SameBits(mesh.position[first], mesh.position[first + columns - 1])) << first;
    }
}

/// \return how many triangles are slivers without a side of their own; all others must have their
///         counter-clockwise side where \p outward points.
size_t ExpectFacing(const std::vector<Triangle>& triangles,
                    const std::function<Vector3<float>(const Vector3<float>&)>& outward) {
    const double average = AreaOf(triangles) / static_cast<double>(triangles.size());
    size_t slivers = 0;
    for (const Triangle& triangle : triangles) {
        const Vector3<float> normal = FaceNormal(triangle);
        if (Length(normal) < average * 1e-4) {
            ++slivers;
        } else {
            EXPECT_GT(Dot(normal, outward(Centroid(triangle))), 0);
        }
    }
    return slivers;
}

Vector3<float> AwayFromCentre(const Vector3<float>& p) {
    return p;
}

Vector3<float> TowardsCentre(const Vector3<float>& p) {
    return {-p.x, -p.y, -p.z};
}

Vector3<float> AwayFromAxis(const Vector3<float>& p) {
    return {p.x, p.y, 0};
}

TEST_F(RoundMesh, GlobeIsAClosedSphereSeenFromInside) {
    constexpr size_t kColumns = 129;
    const MeshOnGpu mesh = Take(OVR::BuildGlobe(1, 1, 2.5F));
    ExpectCounts(mesh, 9159, 53760);
    ExpectRadius(mesh, 2.5F);
    ExpectSeamClosed(mesh, kColumns);
    const std::vector<Triangle> triangles = TrianglesOf(mesh);
    EXPECT_EQ(ExpectFacing(triangles, TowardsCentre), 2 * 128U);
    EXPECT_NEAR(AreaOf(triangles), 4 * kPiD * 2.5 * 2.5, 0.1);
    // Column by column: the second cell is the one above the first.
    EXPECT_EQ(std::vector<uint16_t>(mesh.indices.begin(), mesh.indices.begin() + 8),
              (std::vector<uint16_t>{0, 1, 129, 129, 1, 130, 129, 130}));
    EXPECT_EQ(mesh.indices.back(), 9158);
}

TEST_F(RoundMesh, GlobeCarriesAnUprightEquirectangularPicture) {
    constexpr size_t kColumns = 129;
    const MeshOnGpu mesh = Take(OVR::BuildGlobe(2, 3, 1));
    const auto vertex = [](size_t x, size_t y) { return y * kColumns + x; };
    // The equator is row 35: three rows are spent on the first 64th.
    ExpectAt(mesh.position[vertex(0, 35)], {0, 0, 1}, 1e-6F);
    ExpectAt(mesh.position[vertex(64, 35)], {0, 0, -1}, 1e-6F);
    ExpectAt(mesh.position[vertex(96, 35)], {1, 0, 0}, 1e-6F);
    ExpectAt(mesh.position[vertex(7, 0)], {0, -1, 0}, 1e-6F);
    ExpectAt(mesh.position[vertex(7, 70)], {0, 1, 0}, 1e-6F);
    EXPECT_TRUE(SameBits(mesh.texCoord[vertex(96, 35)], Vector2<float>{1.5F, 1.5F}));
    EXPECT_TRUE(SameBits(mesh.texCoord[vertex(128, 69)], Vector2<float>{2, 3 * 0.00390625F}));
    for (size_t x = 0; x < kColumns; ++x) {
        ASSERT_TRUE(SameBits(mesh.texCoord[vertex(x, 0)], Vector2<float>{0.5F, 3}));
        ASSERT_TRUE(SameBits(mesh.texCoord[vertex(x, 70)], Vector2<float>{0.5F, 0}));
    }
}

TEST_F(RoundMesh, GlobeRowsAreFourTimesAsDenseAtThePoles) {
    const MeshOnGpu mesh = Take(OVR::BuildGlobe(1, 1, 1));
    for (size_t y = 0; y < 70; ++y) {
        const float step = mesh.texCoord[y * 129].y - mesh.texCoord[(y + 1) * 129].y;
        ASSERT_EQ(step, y < 4 || y >= 66 ? 1.0F / 256 : 1.0F / 64) << y;
    }
}

TEST_F(RoundMesh, DomeFacesOutwardsAndEndsAtItsRim) {
    const MeshOnGpu mesh = Take(OVR::BuildDome(kPi / 3, 2, 3));
    ExpectCounts(mesh, 2145, 12288);
    ExpectRadius(mesh, 100);
    ExpectSeamClosed(mesh, 65);
    const std::vector<Triangle> triangles = TrianglesOf(mesh);
    EXPECT_EQ(ExpectFacing(triangles, AwayFromCentre), 64U);
    EXPECT_NEAR(AreaOf(triangles), 2 * kPiD * 1e4 * (1 - std::cos(kPiD / 3)), 60);
    // Zenith first; at the rim, 60 degrees down, from -x by way of -z.
    ExpectAt(mesh.position[5], {0, 100, 0}, 1e-4F);
    const float r = 100 * std::sin(kPi / 3);
    ExpectAt(mesh.position[size_t{32} * 65], {-r, 50, 0}, 1e-4F);
    ExpectAt(mesh.position[size_t{32} * 65 + 16], {0, 50, -r}, 1e-4F);
    EXPECT_TRUE(SameBits(mesh.texCoord[0], Vector2<float>{0, 3}));
    EXPECT_TRUE(SameBits(mesh.texCoord[2144], Vector2<float>{2, 0}));
    EXPECT_EQ(mesh.indices[6], 65);
}

TEST_F(RoundMesh, SpherePatchIsCentredOnX) {
    const MeshOnGpu mesh = Take(OVR::BuildSpherePatch(kPi / 2));
    ExpectCounts(mesh, 4225, 24576);
    ExpectRadius(mesh, 100);
    const std::vector<Triangle> triangles = TrianglesOf(mesh);
    EXPECT_EQ(ExpectFacing(triangles, TowardsCentre), 0U);
    EXPECT_NEAR(AreaOf(triangles), 1e4 * kPiD / 2 * 2 * std::sin(kPiD / 4), 10);
    constexpr size_t kCentre = 32 * 65 + 32;
    EXPECT_TRUE(SameBits(mesh.position[kCentre], Vector3<float>{100, 0, 0}));
    EXPECT_TRUE(SameBits(mesh.texCoord[kCentre], Vector2<float>{0, 0}));
    EXPECT_TRUE(SameBits(mesh.texCoord[64], Vector2<float>{0.5F, 0.5F}));
    // Lowest latitude first, longitude towards +z.
    ExpectAt(mesh.position[64], {50, -100 * std::sqrt(0.5F), 50}, 1e-4F);
}

TEST_F(RoundMesh, CylinderFacesOutwardsAndFadesAtItsEnds) {
    const MeshOnGpu mesh = Take(OVR::BuildTesselatedCylinder(2, 3, 48, 5, 4, 7));
    ExpectCounts(mesh, size_t{49} * 6, size_t{48} * 5 * 6);
    const std::vector<Triangle> triangles = TrianglesOf(mesh);
    EXPECT_EQ(ExpectFacing(triangles, AwayFromAxis), 0U);
    EXPECT_NEAR(AreaOf(triangles), 48 * 2 * std::sin(kPiD / 48) * 2 * 6, 1e-4);
    EXPECT_EQ(mesh.position.front().z, -3);
    EXPECT_EQ(mesh.position.back().z, 3);
    EXPECT_TRUE(SameBits(mesh.texCoord.front(), Vector2<float>{0, 7}));
    EXPECT_TRUE(SameBits(mesh.texCoord.back(), Vector2<float>{4, 0}));
    for (size_t i = 0; i < mesh.position.size(); ++i) {
        const bool end = i < 49 || i >= size_t{49} * 5;
        ASSERT_EQ(mesh.vertexColor[i].w, end ? 0 : 1) << i;
        ASSERT_NEAR(std::hypot(mesh.position[i].x, mesh.position[i].y), 2, 1e-6) << i;
    }
}

TEST_F(RoundMesh, CylinderComputesItsSeamAnew) {
    const MeshOnGpu mesh = Take(OVR::BuildTesselatedCylinder(1, 1, 4, 1, 1, 1));
    EXPECT_TRUE(SameBits(mesh.position[0], Vector3<float>{1, 0, -1}));
    EXPECT_TRUE(SameBits(mesh.position[5], Vector3<float>{1, 0, 1}));
    EXPECT_TRUE(SameBits(mesh.position[4], Vector3<float>{1, std::sin(kPi + kPi), -1}));
    EXPECT_NE(mesh.position[4].y, 0);
    // Rows outermost, one split for all cells.
    EXPECT_EQ(std::vector<uint16_t>(mesh.indices.begin(), mesh.indices.begin() + 8),
              (std::vector<uint16_t>{0, 1, 5, 5, 1, 6, 1, 2}));
}

TEST_F(RoundMesh, CylinderIndicesWrapAt16Bits) {
    const MeshOnGpu largest = Take(OVR::BuildTesselatedCylinder(1, 1, 255, 255, 1, 1));
    ExpectCounts(largest, 65536, size_t{255} * 255 * 6);
    EXPECT_EQ(ExpectFacing(TrianglesOf(largest), AwayFromAxis), 0U);
    EXPECT_EQ(largest.indices.back(), 65535);

    const MeshOnGpu wrapped = Take(OVR::BuildTesselatedCylinder(1, 1, 256, 255, 1, 1));
    ExpectCounts(wrapped, size_t{257} * 256, size_t{256} * 255 * 6);
    const std::vector<uint16_t> lastCell(wrapped.indices.end() - 6, wrapped.indices.end());
    EXPECT_EQ(lastCell, (std::vector<uint16_t>{65533, 65534, 254, 254, 65534, 255}));
}

TEST_F(RoundMesh, TorusIsClosedBothWaysAndFacesOutwards) {
    constexpr size_t kColumns = 97;
    const MeshOnGpu mesh = Take(OVR::BuildTorus(3, 1, 96, 64, 5, 2));
    ExpectCounts(mesh, kColumns * 65, size_t{96} * 64 * 6);
    ExpectSeamClosed(mesh, kColumns);
    const auto vertex = [](size_t x, size_t y) { return y * kColumns + x; };
    for (size_t x = 0; x < kColumns; ++x) {
        ASSERT_TRUE(SameBits(mesh.position[x], mesh.position[vertex(x, 64)])) << x;
    }
    const std::vector<Triangle> triangles = TrianglesOf(mesh);
    const auto awayFromTube = [](const Vector3<float>& p) {
        const float toRing = 3 / std::hypot(p.x, p.z);
        return Vector3<float>{p.x - p.x * toRing, p.y, p.z - p.z * toRing};
    };
    EXPECT_EQ(ExpectFacing(triangles, awayFromTube), 0U);
    EXPECT_NEAR(AreaOf(triangles), 4 * kPiD * kPiD * 3, 0.2);
    // From the inner side at -z; a quarter on in either direction lie -x and the bottom.
    ExpectAt(mesh.position[0], {0, 0, -2}, 1e-5F);
    ExpectAt(mesh.position[vertex(24, 16)], {-3, -1, 0}, 1e-5F);
    ExpectAt(mesh.position[vertex(48, 32)], {0, 0, 4}, 1e-5F);
    EXPECT_TRUE(SameBits(mesh.texCoord[0], Vector2<float>{0, 2}));
    EXPECT_TRUE(SameBits(mesh.texCoord[vertex(48, 32)], Vector2<float>{2.5F, 1}));
    EXPECT_TRUE(SameBits(mesh.texCoord.back(), Vector2<float>{5, 0}));
    EXPECT_EQ(mesh.vertexColor.back().w, 1);
    EXPECT_EQ(mesh.indices[6], 1);
}

TEST_F(RoundMesh, DegenerateArgumentsCollapseTheMesh) {
    for (const Vector3<float>& position : Take(OVR::BuildGlobe(1, 1, 0)).position) {
        ASSERT_EQ(Length(position), 0);
    }
    for (const Vector3<float>& position : Take(OVR::BuildDome(0, 1, 1)).position) {
        ExpectAt(position, {0, 100, 0}, 1e-4F);
    }
    for (const Vector3<float>& position : Take(OVR::BuildSpherePatch(0)).position) {
        ExpectAt(position, {100, 0, 0}, 0);
    }
    ExpectCounts(Take(OVR::BuildTesselatedCylinder(0, 0, 1, 1, 1, 1)), 4, 6);
}

}  // namespace
