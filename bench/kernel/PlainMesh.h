#pragma once

#include <cstdint>

#include "kernel/GlGeometry.h"

/// What the builders are measured against: the same arrays, filled by plain loops. They compute
/// once what a row or a column shares, as the builders do.
struct PlainMesh {
    OVR::VertexAttribs attribs;
    OVR::Array<unsigned short> indices;

    OVR::GlGeometry Upload() const {
        OVR::GlGeometry geometry;
        geometry.Create(attribs, indices);
        return geometry;
    }
};

template <typename T>
void SizePlain(OVR::Array<T>& array, uint32_t size) {
    array.Reserve(size);
    array.Size = size;
}

/// A mesh of a grid's vertices and of \p indexCount indices, all of them still to be filled.
inline PlainMesh PlainGrid(unsigned columns, unsigned rows, uint32_t indexCount) {
    PlainMesh mesh;
    SizePlain(mesh.attribs.position, columns * rows);
    SizePlain(mesh.attribs.texCoord, columns * rows);
    SizePlain(mesh.attribs.vertexColor, columns * rows);
    SizePlain(mesh.indices, indexCount);
    return mesh;
}

/// Fills a mesh's vertices one after the other.
class VertexCursor {
public:
    explicit VertexCursor(PlainMesh& mesh)
        : position_(mesh.attribs.position.Data),
          texCoord_(mesh.attribs.texCoord.Data),
          color_(mesh.attribs.vertexColor.Data) {}

    void put(float x, float y, float z, float u, float v, float brightness, float alpha) {
        *position_++ = {x, y, z};
        *texCoord_++ = {u, v};
        *color_++ = {brightness, brightness, brightness, alpha};
    }

private:
    OVR::Vector3<float>* position_;
    OVR::Vector2<float>* texCoord_;
    OVR::Vector4<float>* color_;
};

inline void PutCell(unsigned short*& slot, unsigned i, unsigned columns) {
    slot[0] = static_cast<unsigned short>(i);
    slot[1] = slot[4] = static_cast<unsigned short>(i + 1);
    slot[2] = slot[3] = static_cast<unsigned short>(i + columns);
    slot[5] = static_cast<unsigned short>(i + columns + 1);
    slot += 6;
}

inline void PutCellsByRow(PlainMesh& mesh, unsigned horizontal, unsigned vertical) {
    unsigned short* slot = mesh.indices.Data;
    for (unsigned y = 0; y < vertical; ++y) {
        for (unsigned x = 0; x < horizontal; ++x) {
            PutCell(slot, y * (horizontal + 1) + x, horizontal + 1);
        }
    }
}

inline void PutCellsByColumn(PlainMesh& mesh, unsigned horizontal, unsigned vertical) {
    unsigned short* slot = mesh.indices.Data;
    for (unsigned x = 0; x < horizontal; ++x) {
        for (unsigned y = 0; y < vertical; ++y) {
            PutCell(slot, y * (horizontal + 1) + x, horizontal + 1);
        }
    }
}
