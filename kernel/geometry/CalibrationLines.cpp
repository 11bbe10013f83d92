#include "kernel/geometry/CalibrationLines.h"

#include <algorithm>

#include "kernel/geometry/private/Mesh.h"

namespace OVR {
namespace {

constexpr uint32_t kVerticesPerLine = 4;
constexpr uint32_t kIndicesPerLine = 4;
constexpr float kDepth = -1.001F;  // Frozen: beyond the edge
constexpr float kTickScale = 0.02F;

/// The coordinate that a line crosses, and its texture coordinate.
struct LinePlace {
    float f;
    float v;
};

LinePlace PlaceAt(float t) {
    return {t + t - 1.0F, 1.0F - t};
}

/// The vertices of one end: the horizontal's, then the vertical's.
void FillEnd(VertexAttribs& attribs, size_t vertex, LinePlace place, float a, float u) {
    attribs.position[vertex] = {a, place.f, kDepth};
    attribs.position[vertex + 1] = {place.f, a, kDepth};
    attribs.texCoord[vertex] = {u, place.v};
    attribs.texCoord[vertex + 1] = {u, place.v};
}

void FillLine(VertexAttribs& attribs, size_t vertex, LinePlace place, float scale) {
    FillEnd(attribs, vertex, place, -scale, 0.0F);
    FillEnd(attribs, vertex + 2, place, scale, 1.0F);
}

void FillVertices(VertexAttribs& attribs, int extraLines, bool fullGrid) {
    std::fill(attribs.vertexColor.begin(), attribs.vertexColor.end(), kOpaqueWhite);
    if (extraLines == 0) {
        FillLine(attribs, 0, {0.0F, 0.5F}, 1.0F);
        return;
    }
    const float step = 1.0F / static_cast<float>(2 * extraLines);
    for (int line = 0; line <= 2 * extraLines; ++line) {
        const bool full = fullGrid || line == extraLines;
        FillLine(attribs, static_cast<size_t>(line) * kVerticesPerLine,
                 PlaceAt(static_cast<float>(line) * step), full ? 1.0F : kTickScale);
    }
}

// Frozen: 16-bit indices
void FillIndices(Array<unsigned short>& indices) {
    for (uint32_t slot = 0; slot < indices.Size; slot += kIndicesPerLine) {
        const auto first = static_cast<unsigned short>(slot);
        indices[slot] = first;
        indices[slot + 1] = static_cast<unsigned short>(first + 2);
        indices[slot + 2] = static_cast<unsigned short>(first + 1);
        indices[slot + 3] = static_cast<unsigned short>(first + 3);
    }
}

}  // namespace

GlGeometry BuildCalibrationLines(int extraLines, bool fullGrid) {
    // Also too large when extraLines is less than 0.
    const uint64_t lines = 2 * static_cast<uint64_t>(extraLines) + 1;
    Mesh mesh(lines * kVerticesPerLine, lines * kIndicesPerLine);
    FillVertices(mesh.attribs, extraLines, fullGrid);
    FillIndices(mesh.indices);
    return Upload(mesh);  // Frozen: primitive of the calibration lines
}

}  // namespace OVR
