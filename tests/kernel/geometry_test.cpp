#include "kernel/GlGeometry.h"

#include <gtest/gtest.h>

#include "GlTest.h"
#include "MeshReader.h"
#include "kernel/Math.h"

namespace {

using OVR::Array;
using OVR::GlGeometry;
using OVR::VertexAttribs;

class Geometry : public GlTest {};

constexpr float kMax = OVR::Math<float>::MaxValue;

/// Plain geometry of \p count vertices: positions and texture coordinates only.
void FillPositions(VertexAttribs& attribs, uint32_t count, float offset) {
    attribs.position.Resize(count);
    attribs.texCoord.Resize(count);
    for (uint32_t i = 0; i < count; ++i) {
        const float f = static_cast<float>(i) + offset;
        attribs.position[i] = {f, -f, 2 * f};
        attribs.texCoord[i] = {f / 8, f / 4};
    }
}

template <typename T>
void FillWith(Array<T>& array, uint32_t count, T value) {
    array.Resize(count);
    for (T& element : array) {
        element = value;
    }
}

void FillIndices(Array<unsigned short>& indices, uint32_t count) {
    indices.Resize(count);
    for (uint32_t i = 0; i < count; ++i) {
        indices[i] = static_cast<unsigned short>(i);
    }
}

/// Lines with positions and texture coordinates.
GlGeometry MakeGeometry(uint32_t vertices, uint32_t indexCount) {
    VertexAttribs attribs;
    FillPositions(attribs, vertices, 0);
    Array<unsigned short> indices;
    FillIndices(indices, indexCount);
    GlGeometry geometry;
    geometry.primitiveType = GL_LINES;
    geometry.Create(attribs, indices);
    return geometry;
}

TEST_F(Geometry, CreatePacksOneBlockPerAttributeByLocation) {
    constexpr uint32_t kCount = 3;
    VertexAttribs attribs;
    FillPositions(attribs, kCount, 1);
    FillWith(attribs.normal, kCount, {1, 2, 3});
    FillWith(attribs.tangent, kCount, {1, 2, 3});
    FillWith(attribs.binormal, kCount, {1, 2, 3});
    FillWith(attribs.vertexColor, kCount, {1, 2, 3, 4});
    FillWith(attribs.texCoord1, kCount, {1, 2});
    FillWith(attribs.jointIndices, kCount, {7, 8, 9, 10});
    FillWith(attribs.jointWeights, kCount, {1, 2, 3, 4});
    Array<unsigned short> indices;
    FillIndices(indices, kCount);
    GlGeometry geometry;
    geometry.Create(attribs, indices);

    const MeshOnGpu mesh = Take(geometry);
    constexpr GLint kComponents[] = {3, 3, 3, 3, 4, 2, 2, 4, 4};
    uintptr_t offset = 0;
    for (size_t location = 0; location < mesh.layout.size(); ++location) {
        const AttributeLayout& layout = mesh.layout[location];
        ASSERT_TRUE(layout.enabled) << location;
        ASSERT_EQ(layout.components, kComponents[location]) << location;
        ASSERT_EQ(layout.type, location == 7 ? GL_INT : GL_FLOAT) << location;
        ASSERT_EQ(layout.stride, kComponents[location] * 4) << location;
        ASSERT_EQ(layout.normalized, GL_FALSE) << location;
        ASSERT_EQ(layout.offset, offset) << location;
        offset += kCount * static_cast<uintptr_t>(kComponents[location]) * 4;
    }
    EXPECT_EQ(mesh.vertexBytes, static_cast<GLint>(offset));
    EXPECT_EQ(mesh.position[2].z, 6);
    EXPECT_EQ(mesh.texCoord[2].y, 0.75F);
    EXPECT_EQ(mesh.vertexColor[2].w, 4);
    EXPECT_EQ(mesh.indices, (std::vector<uint16_t>{0, 1, 2}));
}

TEST_F(Geometry, UpdateReplacesVerticesAndKeepsTheRest) {
    GlGeometry geometry = MakeGeometry(4, 4);
    VertexAttribs moved;
    FillPositions(moved, 6, 10);
    moved.texCoord.Resize(0);
    geometry.Update(moved, false);
    EXPECT_EQ(geometry.localBounds.Max.z, 6);
    EXPECT_EQ(GetInteger(GL_VERTEX_ARRAY_BINDING), static_cast<GLint>(geometry.vertexArrayObject));
    geometry.Update(moved, true);
    EXPECT_EQ(geometry.localBounds.Min.x, 10);
    EXPECT_EQ(geometry.localBounds.Max.z, 30);
    EXPECT_EQ(geometry.primitiveType, GL_LINES);

    const MeshOnGpu mesh = Take(geometry);
    EXPECT_EQ(mesh.vertexBytes, 6 * 12);
    EXPECT_EQ(mesh.position[5].x, 15);
    EXPECT_FALSE(mesh.layout[5].enabled);
    EXPECT_EQ(mesh.indices.size(), 4U);
}

TEST_F(Geometry, FreeDeletesAndEmptiesAllButThePrimitiveType) {
    GlGeometry geometry = MakeGeometry(3, 3);
    const GlGeometry copy = geometry;
    geometry.Free();
    geometry.Free();

    EXPECT_FALSE(GLES3::glIsBuffer(copy.vertexBuffer));
    EXPECT_FALSE(GLES3::glIsBuffer(copy.indexBuffer));
    EXPECT_FALSE(GLES3::glIsVertexArray(copy.vertexArrayObject));
    EXPECT_EQ(geometry.vertexArrayObject | geometry.vertexBuffer | geometry.indexBuffer, 0U);
    EXPECT_EQ(geometry.vertexCount | geometry.indexCount, 0);
    EXPECT_EQ(geometry.localBounds.Min.x, kMax);
    EXPECT_EQ(geometry.localBounds.Max.z, -kMax);
    EXPECT_EQ(geometry.primitiveType, GL_LINES);
}

}  // namespace
