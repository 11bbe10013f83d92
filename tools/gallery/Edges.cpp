#include "Edges.h"

#include <algorithm>
#include <set>
#include <utility>

namespace {

/// Reads \p count elements from the start of the buffer bound to \p target.
template <typename T>
void ReadBuffer(GLenum target, int count, OVR::Array<T>& elements) {
    elements.Resize(static_cast<uint32_t>(count));
    const auto bytes = static_cast<GLsizeiptr>(elements.Size * sizeof(T));
    const auto* data =
        static_cast<const T*>(GLES3::glMapBufferRange(target, 0, bytes, GL_MAP_READ_BIT));
    std::copy_n(data, elements.Size, elements.Data);
    GLES3::glUnmapBuffer(target);
}

/// Fills \p lines with the sides of all triangles, each once.
void FillSides(const OVR::Array<unsigned short>& triangles, OVR::Array<unsigned short>& lines) {
    std::set<std::pair<unsigned short, unsigned short>> sides;
    for (uint32_t i = 0; i + 2 < triangles.Size; i += 3) {
        for (uint32_t side = 0; side < 3; ++side) {
            sides.insert(std::minmax({triangles[i + side], triangles[i + (side + 1) % 3]}));
        }
    }
    lines.Resize(sides.size() * 2);
    unsigned short* slot = lines.Data;
    for (const auto& [from, to] : sides) {
        *slot++ = from;
        *slot++ = to;
    }
}

}  // namespace

OVR::GlGeometry EdgesOf(const OVR::GlGeometry& mesh) {
    OVR::VertexAttribs attribs;
    OVR::Array<unsigned short> triangles;
    GLES3::glBindVertexArray(mesh.vertexArrayObject);
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, mesh.vertexBuffer);
    ReadBuffer(GL_ARRAY_BUFFER, mesh.vertexCount, attribs.position);
    ReadBuffer(GL_ELEMENT_ARRAY_BUFFER, mesh.indexCount, triangles);
    OVR::Array<unsigned short> lines;
    FillSides(triangles, lines);

    OVR::GlGeometry edges;
    edges.Create(attribs, lines);
    edges.primitiveType = GL_LINES;
    return edges;
}
