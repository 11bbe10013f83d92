// The two quads of the filter, read back from GL.

#include <gtest/gtest.h>

#include <vector>

#include "gl/GLES3.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "kernel/geometry/TesselatedQuadInside.h"
#include "support/RendererHarness.h"

namespace {

template <typename T>
std::vector<T> ReadBuffer(GLenum target, unsigned buffer, size_t offset, size_t count) {
    glBindVertexArray(0);
    glBindBuffer(target, buffer);
    const auto bytes = static_cast<GLsizeiptr>(count * sizeof(T));
    const auto* data = static_cast<const T*>(
        glMapBufferRange(target, static_cast<GLintptr>(offset), bytes, GL_MAP_READ_BIT));
    EXPECT_NE(nullptr, data);
    std::vector<T> copy(data, data + (data == nullptr ? 0 : count));
    glUnmapBuffer(target);
    glBindBuffer(target, 0);
    return copy;
}

std::vector<unsigned short> Indices(const OVR::GlGeometry& mesh) {
    return ReadBuffer<unsigned short>(GL_ELEMENT_ARRAY_BUFFER, mesh.indexBuffer, 0,
                                      static_cast<size_t>(mesh.indexCount));
}

/// Blocks follow one another by location: positions, colours, texture coordinates.
struct Vertices {
    explicit Vertices(const OVR::GlGeometry& mesh) {
        const auto n = static_cast<size_t>(mesh.vertexCount);
        const auto read = [&](size_t start, size_t floats) {
            return ReadBuffer<float>(GL_ARRAY_BUFFER, mesh.vertexBuffer, n * start, n * floats);
        };
        position = read(0, 3);
        color = read(12, 4);
        texCoord = read(28, 2);
    }

    std::vector<float> position;
    std::vector<float> color;
    std::vector<float> texCoord;
};

using Floats = std::vector<float>;
using Shorts = std::vector<unsigned short>;

TEST(TesselatedQuad, OneCell) {
    TestContext context;
    OVR::GlGeometry mesh = OVR::BuildTesselatedQuad(1, 1, true);
    const Vertices vertices(mesh);
    EXPECT_EQ((Floats{-1, -1, 0, 1, -1, 0, -1, 1, 0, 1, 1, 0}), vertices.position);
    EXPECT_EQ((Floats{0, 1, 1, 1, 0, 0, 1, 0}), vertices.texCoord);
    EXPECT_EQ((Floats{1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0}), vertices.color);
    EXPECT_EQ((Shorts{0, 3, 2, 0, 1, 3, 3, 1, 2, 2, 1, 0}), Indices(mesh));
    EXPECT_EQ(GL_TRIANGLES, mesh.primitiveType);
    EXPECT_EQ(-1.0F, mesh.localBounds.Min.x);
    EXPECT_EQ(1.0F, mesh.localBounds.Max.y);
    mesh.Free();
    EXPECT_EQ(0U, mesh.vertexBuffer + mesh.indexBuffer + mesh.vertexArrayObject);
}

TEST(TesselatedQuad, FirstAndLastCellAreSplitTowardsTheCentre) {
    TestContext context;
    OVR::GlGeometry row = OVR::BuildTesselatedQuad(2, 1, false);
    EXPECT_EQ((Shorts{0, 4, 3, 0, 1, 4, 1, 5, 4, 1, 2, 5}), Indices(row));
    row.Free();
    OVR::GlGeometry grid = OVR::BuildTesselatedQuad(2, 2, false);
    EXPECT_EQ((Shorts{0, 4, 3, 0, 1, 4, 1, 2, 4, 4, 2, 5, 3, 4, 6, 6, 4, 7, 4, 8, 7, 4, 5, 8}),
              Indices(grid));
    const Vertices vertices(grid);
    EXPECT_EQ((Floats{1, 1, 1, 1}), Floats(&vertices.color[16], &vertices.color[20]));
    EXPECT_EQ((Floats{0.5, 0.5}), Floats(&vertices.texCoord[8], &vertices.texCoord[10]));
    grid.Free();
}

TEST(TesselatedQuadInside, HangsBelowItsAnchor) {
    TestContext context;
    OVR::GlGeometry mesh = OVR::BuildTesselatedQuadInside(0.25F, -0.5F, false);
    const Vertices vertices(mesh);
    const float left = 0.25F - 0.05F;
    const float right = 0.25F + 0.05F;
    const float top = -0.5F - 0.2F;
    const float bottom = -0.5F - 0.4F;
    EXPECT_EQ((Floats{left, top, 0, right, top, 0, left, bottom, 0, right, bottom, 0}),
              vertices.position);
    EXPECT_EQ((Floats{0, 1, 1, 1, 0, 0, 1, 0}), vertices.texCoord);
    EXPECT_EQ((Floats{1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0}), vertices.color);
    EXPECT_EQ((Shorts{0, 3, 2, 0, 1, 3}), Indices(mesh));
    mesh.Free();
    mesh = OVR::BuildTesselatedQuadInside(0, 0, true);
    EXPECT_EQ((Shorts{0, 3, 2, 0, 1, 3, 3, 1, 2, 2, 1, 0}), Indices(mesh));
    mesh.Free();
}

}  // namespace
