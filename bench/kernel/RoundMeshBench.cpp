// The round meshes, beside plain loops.

#include <cmath>
#include <utility>
#include <vector>

#include "kernel/Math.h"
#include "kernel/MeshContest.h"
#include "kernel/geometry/Dome.h"
#include "kernel/geometry/Globe.h"
#include "kernel/geometry/SpherePatch.h"
#include "kernel/geometry/TesselatedCylinder.h"
#include "kernel/geometry/Torus.h"

namespace {

constexpr float kPi = OVR::Math<float>::Pi;

float GlobeRow(unsigned y) {
    const auto row = static_cast<float>(y);
    if (y <= 3) {
        return row * 0.00390625F;
    }
    return y <= 66 ? (row - 3) * 0.015625F : (63 + (row - 66) * 0.25F) * 0.015625F;
}

PlainMesh PlainGlobe(float uScale, float vScale, float radius) {
    PlainMesh mesh = PlainGrid(129, 71, 53760);
    float cosines[129];
    float sines[129];
    for (unsigned x = 0; x <= 128; ++x) {
        const float xf = static_cast<float>(x % 128) * 0.0078125F + 0.25F;
        cosines[x] = std::cos((xf + xf) * kPi);
        sines[x] = std::sin((xf + xf) * kPi);
    }
    VertexCursor vertex(mesh);
    for (unsigned y = 0; y <= 70; ++y) {
        const float yf = GlobeRow(y);
        const float ring = std::cos((yf - 0.5F) * kPi) * radius;
        const float height = std::sin((yf - 0.5F) * kPi) * radius;
        const float v = (1 - yf) * vScale;
        for (unsigned x = 0; x <= 128; ++x) {
            const float u = y == 0 || y == 70 ? 0.5F : static_cast<float>(x) * 0.0078125F * uScale;
            vertex.put(cosines[x] * ring, height, sines[x] * ring, u, v, 1, 1);
        }
    }
    PutCellsByColumn(mesh, 128, 70);
    return mesh;
}

MESH(globe, "globe", OVR::BuildGlobe(1, 1, 1), PlainGlobe(1, 1, 1));

PlainMesh PlainDome(float latRads, float uScale, float vScale) {
    PlainMesh mesh = PlainGrid(65, 33, 12288);
    float cosines[65];
    float sines[65];
    for (unsigned x = 0; x <= 64; ++x) {
        const float xf = static_cast<float>(x % 64) * 0.015625F;
        cosines[x] = std::cos((kPi + kPi) * (xf + 0.5F));
        sines[x] = std::sin((kPi + kPi) * (xf + 0.5F));
    }
    VertexCursor vertex(mesh);
    for (unsigned y = 0; y <= 32; ++y) {
        const float yf = static_cast<float>(y) * 0.03125F;
        const float lat = (kPi - yf * latRads) - kPi * 0.5F;
        const float ring = std::cos(lat) * 100;
        const float height = std::sin(lat) * 100;
        const float v = (1 - yf) * vScale;
        for (unsigned x = 0; x <= 64; ++x) {
            vertex.put(cosines[x] * ring, height, sines[x] * ring,
                       static_cast<float>(x) * 0.015625F * uScale, v, 1, 1);
        }
    }
    PutCellsByColumn(mesh, 64, 32);
    return mesh;
}

MESH(dome, "dome", OVR::BuildDome(1, 1, 1), PlainDome(1, 1, 1));

PlainMesh PlainCylinder(float radius, float height, unsigned horizontal, unsigned vertical,
                        float uScale, float vScale) {
    PlainMesh mesh = PlainGrid(horizontal + 1, vertical + 1, horizontal * vertical * 6);
    const float rx = 1.0F / static_cast<float>(horizontal);
    const float ry = 1.0F / static_cast<float>(vertical);
    std::vector<std::pair<float, float>> circle(horizontal + 1);
    for (unsigned x = 0; x <= horizontal; ++x) {
        const float angle = static_cast<float>(x) * rx * (kPi + kPi);
        circle[x] = {std::cos(angle) * radius, std::sin(angle) * radius};
    }
    VertexCursor vertex(mesh);
    for (unsigned y = 0; y <= vertical; ++y) {
        const float yf = static_cast<float>(y) * ry;
        const float alpha = y == 0 || y == vertical ? 0 : 1;
        for (unsigned x = 0; x <= horizontal; ++x) {
            vertex.put(circle[x].first, circle[x].second, yf * (height + height) - height,
                       static_cast<float>(x) * rx * uScale, (1 - yf) * vScale, 1, alpha);
        }
    }
    PutCellsByRow(mesh, horizontal, vertical);
    return mesh;
}

MESH(cylinder, "cylinder, 64 x 64", OVR::BuildTesselatedCylinder(1, 1, 64, 64, 1, 1),
     PlainCylinder(1, 1, 64, 64, 1, 1));

PlainMesh PlainPatch(float fov) {
    PlainMesh mesh = PlainGrid(65, 65, 24576);
    float cosines[65];
    float sines[65];
    for (unsigned x = 0; x <= 64; ++x) {
        const float lon = (static_cast<float>(x) * 0.015625F - 0.5F) * fov;
        cosines[x] = std::cos(lon);
        sines[x] = std::sin(lon);
    }
    VertexCursor vertex(mesh);
    for (unsigned y = 0; y <= 64; ++y) {
        const float yf = static_cast<float>(y) * 0.015625F;
        const float ring = std::cos((yf - 0.5F) * fov) * 100;
        const float height = std::sin((yf - 0.5F) * fov) * 100;
        for (unsigned x = 0; x <= 64; ++x) {
            vertex.put(cosines[x] * ring, height, sines[x] * ring,
                       static_cast<float>(x) * 0.015625F - 0.5F, 0.5F - yf, 1, 1);
        }
    }
    PutCellsByColumn(mesh, 64, 64);
    return mesh;
}

MESH(patch, "sphere patch", OVR::BuildSpherePatch(1), PlainPatch(1));

PlainMesh PlainTorus(float radius, float tubeRadius, unsigned horizontal, unsigned vertical) {
    PlainMesh mesh = PlainGrid(horizontal + 1, vertical + 1, horizontal * vertical * 6);
    std::vector<std::pair<float, float>> circle(horizontal + 1);
    const auto hf = static_cast<float>(horizontal);
    const auto vf = static_cast<float>(vertical);
    for (unsigned x = 0; x <= horizontal; ++x) {
        const float xf = static_cast<float>(x % horizontal) / hf;
        const float angle = kPi * 0.5F - (xf * (kPi + kPi) - kPi);
        circle[x] = {std::cos(angle), std::sin(angle)};
    }
    VertexCursor vertex(mesh);
    for (unsigned y = 0; y <= vertical; ++y) {
        const float angle = static_cast<float>(y % vertical) / vf * (kPi + kPi) - kPi;
        const float ring = radius + std::cos(angle) * tubeRadius;
        const float height = std::sin(angle) * tubeRadius;
        const float v = static_cast<float>(vertical - y) / vf;
        for (unsigned x = 0; x <= horizontal; ++x) {
            vertex.put(circle[x].first * ring, height, circle[x].second * ring,
                       static_cast<float>(x) / hf, v, 1, 1);
        }
    }
    PutCellsByRow(mesh, horizontal, vertical);
    return mesh;
}

MESH(torus, "torus, 64 x 64", OVR::BuildTorus(1, 0.5F, 64, 64, 1, 1), PlainTorus(1, 0.5F, 64, 64));

}  // namespace
