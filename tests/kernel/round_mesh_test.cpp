#include <gtest/gtest.h>

#include <cmath>

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

class RoundMesh : public GlTest {};

void ExpectAt(const Vector3<float>& actual, const Vector3<float>& expected, float tolerance) {
    EXPECT_LE(Length(Minus(actual, expected)), tolerance)
        << actual.x << ", " << actual.y << ", " << actual.z;
}

/// The mesh has the size of its grid; if \p closed, its last column repeats its first bit for bit.
void ExpectGrid(const MeshOnGpu& mesh, size_t columns, size_t rows, bool closed) {
    ASSERT_EQ(mesh.position.size(), columns * rows);
    ASSERT_EQ(mesh.texCoord.size(), columns * rows);
    ASSERT_EQ(mesh.vertexColor.size(), columns * rows);
    ASSERT_EQ(mesh.indices.size(), (columns - 1) * (rows - 1) * 6);
    for (size_t first = 0; closed && first < mesh.position.size(); first += columns) {
        ASSERT_EQ(Bits(mesh.position[first]), Bits(mesh.position[first + columns - 1])) << first;
    }
}

void ExpectOpaqueWhite(const MeshOnGpu& mesh) {
    EXPECT_EQ(FloatsOf(mesh.vertexColor), Floats(mesh.position.size() * 4, 1));
}

/// The counter-clockwise side of the triangles, without the slivers at poles, is where \p outward
/// points.
template <typename Outward>
void ExpectFaces(const MeshOnGpu& mesh, Outward outward) {
    for (const Triangle& triangle : TrianglesOf(mesh)) {
        const Vector3<float> normal = FaceNormal(triangle);
        const Vector3<float> place = Centroid(triangle);
        ASSERT_TRUE(Length(normal) < 1e-6F * Dot(place, place) || Dot(normal, outward(place)) > 0);
    }
}

Vector3<float> AwayFromCenter(const Vector3<float>& p) {
    return p;
}

Vector3<float> TowardsCenter(const Vector3<float>& p) {
    return {-p.x, -p.y, -p.z};
}

Vector3<float> AwayFromAxis(const Vector3<float>& p) {
    return {p.x, p.y, 0};
}

Vector3<float> AwayFromRingOf3(const Vector3<float>& p) {
    const float toRing = 3 / std::hypot(p.x, p.z);
    return {p.x - p.x * toRing, p.y, p.z - p.z * toRing};
}

TEST_F(RoundMesh, GlobeIsAClosedSphereSeenFromInside) {
    const MeshOnGpu mesh = Take(OVR::BuildGlobe(1, 1, 2.5F));
    ExpectGrid(mesh, 129, 71, true);
    ExpectOpaqueWhite(mesh);
    ExpectFaces(mesh, TowardsCenter);
    // Column by column: the second cell is the one above the first.
    EXPECT_EQ(FirstIndices(mesh, 8), (Indices{0, 1, 129, 129, 1, 130, 129, 130}));
    EXPECT_EQ(mesh.indices.back(), 9158);
    for (size_t y = 0; y < 70; ++y) {
        const float step = mesh.texCoord[y * 129].y - mesh.texCoord[(y + 1) * 129].y;
        ASSERT_EQ(step, y < 4 || y >= 66 ? 1.0F / 256 : 1.0F / 64) << y;
    }
}

TEST_F(RoundMesh, GlobeCarriesAnUprightEquirectangularPicture) {
    const MeshOnGpu mesh = Take(OVR::BuildGlobe(2, 3, 1));
    const auto vertex = [](size_t x, size_t y) { return y * 129 + x; };
    // The equator is row 35: three rows are spent on the first 64th.
    ExpectAt(mesh.position[vertex(0, 35)], {0, 0, 1}, 1e-6F);
    ExpectAt(mesh.position[vertex(64, 35)], {0, 0, -1}, 1e-6F);
    ExpectAt(mesh.position[vertex(96, 35)], {1, 0, 0}, 1e-6F);
    ExpectAt(mesh.position[vertex(7, 0)], {0, -1, 0}, 1e-6F);
    ExpectAt(mesh.position[vertex(7, 70)], {0, 1, 0}, 1e-6F);
    EXPECT_EQ(Bits(mesh.texCoord[vertex(96, 35)]), Bits(Vector2<float>{1.5F, 1.5F}));
    EXPECT_EQ(Bits(mesh.texCoord[vertex(128, 69)]), Bits(Vector2<float>{2, 3 * 0.00390625F}));
    for (size_t x = 0; x < 129; ++x) {
        ASSERT_EQ(Bits(mesh.texCoord[vertex(x, 0)]), Bits(Vector2<float>{0.5F, 3}));
        ASSERT_EQ(Bits(mesh.texCoord[vertex(x, 70)]), Bits(Vector2<float>{0.5F, 0}));
    }
}

TEST_F(RoundMesh, DomeFacesOutwardsAndEndsAtItsRim) {
    const MeshOnGpu mesh = Take(OVR::BuildDome(kPi / 3, 2, 3));
    ExpectGrid(mesh, 65, 33, true);
    ExpectOpaqueWhite(mesh);
    ExpectFaces(mesh, AwayFromCenter);
    // Zenith first; at the rim, 60 degrees down, from -x by way of -z.
    ExpectAt(mesh.position[5], {0, 100, 0}, 1e-4F);
    const float r = 100 * std::sin(kPi / 3);
    ExpectAt(mesh.position[size_t{32} * 65], {-r, 50, 0}, 1e-4F);
    ExpectAt(mesh.position[size_t{32} * 65 + 16], {0, 50, -r}, 1e-4F);
    EXPECT_EQ(Bits(mesh.texCoord[0]), Bits(Vector2<float>{0, 3}));
    EXPECT_EQ(Bits(mesh.texCoord[2144]), Bits(Vector2<float>{2, 0}));
    EXPECT_EQ(mesh.indices[6], 65);
}

TEST_F(RoundMesh, SpherePatchIsCenteredOnX) {
    const MeshOnGpu mesh = Take(OVR::BuildSpherePatch(kPi / 2));
    ExpectGrid(mesh, 65, 65, false);
    ExpectOpaqueWhite(mesh);
    ExpectFaces(mesh, TowardsCenter);
    constexpr size_t kCenter = 32 * 65 + 32;
    EXPECT_EQ(Bits(mesh.position[kCenter]), Bits(Vector3<float>{100, 0, 0}));
    EXPECT_EQ(Bits(mesh.texCoord[kCenter]), Bits(Vector2<float>{0, 0}));
    EXPECT_EQ(Bits(mesh.texCoord[64]), Bits(Vector2<float>{0.5F, 0.5F}));
    EXPECT_EQ(mesh.indices[6], 65);
    // Lowest latitude first, longitude towards +z.
    ExpectAt(mesh.position[64], {50, -100 * std::sqrt(0.5F), 50}, 1e-4F);
}

TEST_F(RoundMesh, CylinderFacesOutwardsAndFadesAtItsEnds) {
    const MeshOnGpu mesh = Take(OVR::BuildTesselatedCylinder(2, 3, 48, 5, 4, 7));
    ExpectGrid(mesh, 49, 6, false);
    ExpectFaces(mesh, AwayFromAxis);
    EXPECT_EQ(mesh.position.front().z, -3);
    EXPECT_EQ(mesh.position.back().z, 3);
    EXPECT_EQ(Bits(mesh.texCoord.front()), Bits(Vector2<float>{0, 7}));
    EXPECT_EQ(Bits(mesh.texCoord.back()), Bits(Vector2<float>{4, 0}));
    for (size_t i = 0; i < mesh.position.size(); ++i) {
        const bool end = i < 49 || i >= size_t{49} * 5;
        ASSERT_EQ(mesh.vertexColor[i].w, end ? 0 : 1) << i;
        ASSERT_NEAR(std::hypot(mesh.position[i].x, mesh.position[i].y), 2, 1e-6) << i;
    }
}

TEST_F(RoundMesh, CylinderComputesTheEndOfItsSeam) {
    const MeshOnGpu mesh = Take(OVR::BuildTesselatedCylinder(1, 1, 4, 1, 1, 1));
    EXPECT_EQ(Bits(mesh.position[0]), Bits(Vector3<float>{1, 0, -1}));
    EXPECT_EQ(Bits(mesh.position[5]), Bits(Vector3<float>{1, 0, 1}));
    EXPECT_EQ(Bits(mesh.position[4]), Bits(Vector3<float>{1, std::sin(kPi + kPi), -1}));
    EXPECT_NE(mesh.position[4].y, 0);
    // Row by row, one split for all cells.
    EXPECT_EQ(FirstIndices(mesh, 8), (Indices{0, 1, 5, 5, 1, 6, 1, 2}));
}

TEST_F(RoundMesh, CylinderIndicesWrapAt16Bits) {
    const MeshOnGpu largest = Take(OVR::BuildTesselatedCylinder(1, 1, 255, 255, 1, 1));
    ExpectGrid(largest, 256, 256, false);
    EXPECT_EQ(largest.indices.back(), 65535);

    const MeshOnGpu wrapped = Take(OVR::BuildTesselatedCylinder(1, 1, 256, 255, 1, 1));
    ExpectGrid(wrapped, 257, 256, false);
    EXPECT_EQ(Indices(wrapped.indices.end() - 6, wrapped.indices.end()),
              (Indices{65533, 65534, 254, 254, 65534, 255}));
}

TEST_F(RoundMesh, TorusIsClosedBothWaysAndFacesOutwards) {
    const MeshOnGpu mesh = Take(OVR::BuildTorus(3, 1, 96, 64, 5, 2));
    ExpectGrid(mesh, 97, 65, true);
    ExpectOpaqueWhite(mesh);
    ExpectFaces(mesh, AwayFromRingOf3);
    const auto vertex = [](size_t x, size_t y) { return y * 97 + x; };
    for (size_t x = 0; x < 97; ++x) {
        ASSERT_EQ(Bits(mesh.position[x]), Bits(mesh.position[vertex(x, 64)])) << x;
    }
    // From the inner side at -z; a quarter on in either direction lie -x and the bottom.
    ExpectAt(mesh.position[0], {0, 0, -2}, 1e-5F);
    ExpectAt(mesh.position[vertex(24, 16)], {-3, -1, 0}, 1e-5F);
    ExpectAt(mesh.position[vertex(48, 32)], {0, 0, 4}, 1e-5F);
    EXPECT_EQ(Bits(mesh.texCoord[0]), Bits(Vector2<float>{0, 2}));
    EXPECT_EQ(Bits(mesh.texCoord.back()), Bits(Vector2<float>{5, 0}));
    EXPECT_EQ(FirstIndices(mesh, 7), (Indices{0, 1, 97, 97, 1, 98, 1}));
}

}  // namespace
