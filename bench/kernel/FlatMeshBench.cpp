// The flat meshes and the lines, beside plain loops.

#include "kernel/MeshContest.h"
#include "kernel/geometry/CalibrationLines.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "kernel/geometry/TesselatedQuadInside.h"
#include "kernel/geometry/UnitCubeLines.h"
#include "kernel/geometry/Vignette.h"

namespace {

void Resplit(unsigned short* slot) {
    slot[1] = slot[5];
    slot[3] = slot[0];
}

PlainMesh PlainQuad(unsigned horizontal, unsigned vertical) {
    PlainMesh mesh = PlainGrid(horizontal + 1, vertical + 1, horizontal * vertical * 6);
    VertexCursor vertex(mesh);
    const float rx = 1.0F / static_cast<float>(horizontal);
    const float ry = 1.0F / static_cast<float>(vertical);
    for (unsigned y = 0; y <= vertical; ++y) {
        const float yf = static_cast<float>(y) * ry;
        for (unsigned x = 0; x <= horizontal; ++x) {
            const float xf = static_cast<float>(x) * rx;
            const bool border = x == 0 || x == horizontal || y == 0 || y == vertical;
            vertex.put(xf + xf - 1, yf + yf - 1, 0, xf, 1 - yf, 1, border ? 0 : 1);
        }
    }
    PutCellsByRow(mesh, horizontal, vertical);
    Resplit(mesh.indices.Data);
    Resplit(mesh.indices.Data + size_t{horizontal * vertical - 1} * 6);
    return mesh;
}

MESH(quad, "quad, 64 x 64", OVR::BuildTesselatedQuad(64, 64, false), PlainQuad(64, 64));

PlainMesh PlainInside(float x, float y) {
    static constexpr unsigned short kIndices[] = {0, 3, 2, 0, 1, 3};
    PlainMesh mesh = PlainGrid(2, 2, 6);
    VertexCursor vertex(mesh);
    vertex.put(x - 0.05F, y - 0.2F, 0, 0, 1, 1, 0);
    vertex.put(x + 0.05F, y - 0.2F, 0, 1, 1, 1, 0);
    vertex.put(x - 0.05F, y - 0.4F, 0, 0, 0, 1, 0);
    vertex.put(x + 0.05F, y - 0.4F, 0, 1, 0, 1, 0);
    for (size_t i = 0; i < 6; ++i) {
        mesh.indices[i] = kIndices[i];
    }
    return mesh;
}

MESH(inside, "inner quad", OVR::BuildTesselatedQuadInside(0, 0.5F, false), PlainInside(0, 0.5F));

PlainMesh PlainVignette(float xFraction, float yFraction) {
    PlainMesh mesh = PlainGrid(6, 6, 144);
    const float xs[] = {-1.001F,       xFraction * 0.25F - 1, xFraction - 1,
                        1 - xFraction, 1 - xFraction * 0.25F, 1.001F};
    const float ys[] = {-1.001F,       yFraction * 0.25F - 1, yFraction - 1,
                        1 - yFraction, 1 - yFraction * 0.25F, 1.001F};
    VertexCursor vertex(mesh);
    for (unsigned y = 0; y < 6; ++y) {
        for (unsigned x = 0; x < 6; ++x) {
            const bool white = x >= 2 && x <= 3 && y >= 2 && y <= 3;
            vertex.put(xs[x], ys[y], 0, 0, 0, white ? 1 : 0, 1);
        }
    }
    unsigned short* slot = mesh.indices.Data;
    for (unsigned y = 0; y < 5; ++y) {
        for (unsigned x = 0; x < 5; ++x) {
            if (x == 2 && y == 2) {
                continue;
            }
            PutCell(slot, y * 6 + x, 6);
            if (x == y) {
                Resplit(slot - 6);
            }
        }
    }
    return mesh;
}

MESH(vignette, "vignette", OVR::BuildVignette(0.5F, 0.5F), PlainVignette(0.5F, 0.5F));

PlainMesh PlainCube() {
    static constexpr unsigned short kEdges[] = {0, 1, 1, 3, 3, 2, 2, 0, 4, 5, 5, 7,
                                                7, 6, 6, 4, 0, 4, 1, 5, 3, 7, 2, 6};
    PlainMesh mesh;
    SizePlain(mesh.attribs.position, 8);
    SizePlain(mesh.indices, 24);
    for (unsigned k = 0; k < 8; ++k) {
        mesh.attribs.position[k] = {static_cast<float>(k & 1U), static_cast<float>(k >> 1 & 1U),
                                    static_cast<float>(k >> 2 & 1U)};
    }
    for (size_t i = 0; i < 24; ++i) {
        mesh.indices[i] = kEdges[i];
    }
    return mesh;
}

MESH(cube, "unit cube", OVR::BuildUnitCubeLines(), PlainCube());

PlainMesh PlainCalibration(int extraLines, bool fullGrid) {
    const int lines = 2 * extraLines + 1;
    const auto count = static_cast<unsigned>(lines) * 4;
    PlainMesh mesh = PlainGrid(count, 1, count);
    const float step = 1.0F / static_cast<float>(2 * extraLines);
    VertexCursor vertex(mesh);
    for (int i = 0; i < lines; ++i) {
        const float t = static_cast<float>(i) * step;
        const float f = t + t - 1;
        const float scale = fullGrid || i == extraLines ? 1 : 0.02F;
        for (const float j : {0.0F, 1.0F}) {
            const float a = (j + j - 1) * scale;
            vertex.put(a, f, -1.001F, j, 1 - t, 1, 1);
            vertex.put(f, a, -1.001F, j, 1 - t, 1, 1);
        }
    }
    for (unsigned i = 0; i < count; i += 4) {
        mesh.indices[i] = static_cast<unsigned short>(i);
        mesh.indices[i + 1] = static_cast<unsigned short>(i + 2);
        mesh.indices[i + 2] = static_cast<unsigned short>(i + 1);
        mesh.indices[i + 3] = static_cast<unsigned short>(i + 3);
    }
    return mesh;
}

MESH(calibration, "calibration, 10 lines", OVR::BuildCalibrationLines(10, true),
     PlainCalibration(10, true));

}  // namespace
