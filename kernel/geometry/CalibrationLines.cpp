#include "kernel/geometry/CalibrationLines.h"

#include "kernel/geometry/Grid.h"
#include "kernel/geometry/Mesh.h"

namespace OVR {
namespace {

constexpr uint32_t kVerticesPerLine = 4;
constexpr uint32_t kIndicesPerLine = 4;
constexpr float kDepth = -1.001F;
constexpr float kTickScale = 0.02F;

/// Where a line crosses, and its texture coordinate.
struct LinePlace {
    float f;
    float v;
};

LinePlace PlaceAt(float t) {
    return {t + t - 1.0F, 1.0F - t};
}

void FillLine(VertexAttribs& attribs, size_t vertex, LinePlace place, float scale) {
    for (int end = 0; end < 2; ++end) {
        const auto j = static_cast<float>(end);
        const float a = (j + j - 1.0F) * scale;
        attribs.position[vertex] = {a, place.f, kDepth};
        attribs.position[vertex + 1] = {place.f, a, kDepth};
        for (int direction = 0; direction < 2; ++direction, ++vertex) {
            attribs.texCoord[vertex] = {j, place.v};
            attribs.vertexColor[vertex] = kOpaqueWhite;
        }
    }
}

void FillVertices(VertexAttribs& attribs, int extraLines, bool fullGrid) {
    const int lines = 2 * extraLines + 1;
    ResizeVertices(attribs, static_cast<uint32_t>(lines) * kVerticesPerLine);
    if (extraLines == 0) {
        FillLine(attribs, 0, {0.0F, 0.5F}, 1.0F);
        return;
    }
    const float step = 1.0F / static_cast<float>(2 * extraLines);
    for (int line = 0; line < lines; ++line) {
        const bool full = fullGrid || line == extraLines;
        FillLine(attribs, static_cast<size_t>(line) * kVerticesPerLine,
                 PlaceAt(static_cast<float>(line) * step), full ? 1.0F : kTickScale);
    }
}

void FillIndices(Array<unsigned short>& indices, uint32_t lines) {
    indices.Resize(lines * kIndicesPerLine);
    for (uint32_t slot = 0; slot < indices.Size; slot += kIndicesPerLine) {
        const auto first = static_cast<unsigned short>(slot);
        indices[slot] = first;
        indices[slot + 1] = static_cast<unsigned short>(first + 2);
        indices[slot + 2] = static_cast<unsigned short>(first + 1);
        indices[slot + 3] = static_cast<unsigned short>(first + 3);
    }
}

}  // namespace

Mesh MakeCalibrationLines(int extraLines, bool fullGrid) {
    Mesh mesh;
    FillVertices(mesh.attribs, extraLines, fullGrid);
    FillIndices(mesh.indices, static_cast<uint32_t>(2 * extraLines + 1));
    return mesh;
}

GlGeometry BuildCalibrationLines(int extraLines, bool fullGrid) {
    return Upload(MakeCalibrationLines(extraLines, fullGrid));
}

}  // namespace OVR
