#include "kernel/PlainMesh.h"

#include <cmath>
#include <utility>
#include <vector>

namespace {

constexpr float kPi = 3.14159265358979323846F;

/// Where the next vertex goes.
struct VertexCursor {
    explicit VertexCursor(PlainMesh& mesh)
        : position(mesh.position.get()), texCoord(mesh.texCoord.get()), color(mesh.color.get()) {}

    void put(float x, float y, float z, float u, float v, float brightness, float alpha) {
        position[0] = x;
        position[1] = y;
        position[2] = z;
        texCoord[0] = u;
        texCoord[1] = v;
        color[0] = color[1] = color[2] = brightness;
        color[3] = alpha;
        position += 3;
        texCoord += 2;
        color += 4;
    }

    float* position;
    float* texCoord;
    float* color;
};

void PutCell(uint16_t*& slot, unsigned i, unsigned columns) {
    slot[0] = static_cast<uint16_t>(i);
    slot[1] = slot[4] = static_cast<uint16_t>(i + 1);
    slot[2] = slot[3] = static_cast<uint16_t>(i + columns);
    slot[5] = static_cast<uint16_t>(i + columns + 1);
    slot += 6;
}

void PutCellsByRow(PlainMesh& mesh, unsigned horizontal, unsigned vertical) {
    uint16_t* slot = mesh.indices.get();
    for (unsigned y = 0; y < vertical; ++y) {
        for (unsigned x = 0; x < horizontal; ++x) {
            PutCell(slot, y * (horizontal + 1) + x, horizontal + 1);
        }
    }
}

void PutCellsByColumn(PlainMesh& mesh, unsigned horizontal, unsigned vertical) {
    uint16_t* slot = mesh.indices.get();
    for (unsigned x = 0; x < horizontal; ++x) {
        for (unsigned y = 0; y < vertical; ++y) {
            PutCell(slot, y * (horizontal + 1) + x, horizontal + 1);
        }
    }
}

void Resplit(uint16_t* slot) {
    slot[1] = slot[5];
    slot[3] = slot[0];
}

float GlobeRow(unsigned y) {
    const auto row = static_cast<float>(y);
    if (y <= 3) {
        return row * 0.00390625F;
    }
    return y <= 66 ? (row - 3) * 0.015625F : (63 + (row - 66) * 0.25F) * 0.015625F;
}

}  // namespace

PlainMesh::PlainMesh(size_t vertices, size_t indexCount)
    : position(new float[vertices * 3]),
      texCoord(new float[vertices * 2]),
      color(new float[vertices * 4]),
      indices(new uint16_t[indexCount]) {}

PlainMesh PlainQuad(unsigned horizontal, unsigned vertical) {
    PlainMesh mesh(size_t{horizontal + 1} * (vertical + 1), size_t{horizontal} * vertical * 6);
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
    Resplit(mesh.indices.get());
    Resplit(mesh.indices.get() + size_t{horizontal * vertical - 1} * 6);
    return mesh;
}

PlainMesh PlainGlobe(float uScale, float vScale, float radius) {
    PlainMesh mesh(9159, 53760);
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

PlainMesh PlainDome(float latRads, float uScale, float vScale) {
    PlainMesh mesh(2145, 12288);
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

PlainMesh PlainCylinder(float radius, float height, unsigned horizontal, unsigned vertical,
                        float uScale, float vScale) {
    PlainMesh mesh(size_t{horizontal + 1} * (vertical + 1), size_t{horizontal} * vertical * 6);
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

PlainMesh PlainPatch(float fov) {
    PlainMesh mesh(4225, 24576);
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

PlainMesh PlainVignette(float xFraction, float yFraction) {
    PlainMesh mesh(36, 144);
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
    uint16_t* slot = mesh.indices.get();
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

PlainMesh PlainCube() {
    static constexpr uint16_t kEdges[] = {0, 1, 1, 3, 3, 2, 2, 0, 4, 5, 5, 7,
                                          7, 6, 6, 4, 0, 4, 1, 5, 3, 7, 2, 6};
    PlainMesh mesh(8, 24);
    for (unsigned k = 0; k < 8; ++k) {
        mesh.position[size_t{k} * 3] = static_cast<float>(k & 1U);
        mesh.position[size_t{k} * 3 + 1] = static_cast<float>(k >> 1 & 1U);
        mesh.position[size_t{k} * 3 + 2] = static_cast<float>(k >> 2 & 1U);
    }
    for (size_t i = 0; i < 24; ++i) {
        mesh.indices[i] = kEdges[i];
    }
    return mesh;
}

PlainMesh PlainCalibration(int extraLines, bool fullGrid) {
    const int lines = 2 * extraLines + 1;
    const auto count = static_cast<size_t>(lines) * 4;
    PlainMesh mesh(count, count);
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
    for (size_t i = 0; i < count; i += 4) {
        mesh.indices[i] = static_cast<uint16_t>(i);
        mesh.indices[i + 1] = static_cast<uint16_t>(i + 2);
        mesh.indices[i + 2] = static_cast<uint16_t>(i + 1);
        mesh.indices[i + 3] = static_cast<uint16_t>(i + 3);
    }
    return mesh;
}
