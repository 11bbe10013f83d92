#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

/// A mesh in plain arrays, filled by plain loops: what the builders are measured against. The
/// values are the builders', bit for bit, and so is the thrift: what a row or a column shares is
/// computed once.
struct PlainMesh {
    PlainMesh(size_t vertices, size_t indexCount);

    std::unique_ptr<float[]> position;
    std::unique_ptr<float[]> texCoord;
    std::unique_ptr<float[]> color;
    std::unique_ptr<uint16_t[]> indices;
};

PlainMesh PlainQuad(unsigned horizontal, unsigned vertical);
PlainMesh PlainGlobe(float uScale, float vScale, float radius);
PlainMesh PlainDome(float latRads, float uScale, float vScale);
PlainMesh PlainCylinder(float radius, float height, unsigned horizontal, unsigned vertical,
                        float uScale, float vScale);
PlainMesh PlainPatch(float fov);
PlainMesh PlainVignette(float xFraction, float yFraction);
PlainMesh PlainCube();
PlainMesh PlainCalibration(int extraLines, bool fullGrid);
