// What a draw leaves of the caller's GL state, as the public header's table promises.

#include <gtest/gtest.h>

#include "gl/GLES3.h"
#include "support/RendererHarness.h"

namespace {

GLint Get(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

GLint GetOnUnit(GLenum unit, GLenum name) {
    const GLint active = Get(GL_ACTIVE_TEXTURE);
    glActiveTexture(unit);
    const GLint value = Get(name);
    glActiveTexture(static_cast<GLenum>(active));
    return value;
}

/// Non-default everywhere.
void SetUnusualState(unsigned arrayBuffer) {
    glEnable(GL_BLEND);
    glBlendEquationSeparate(GL_FUNC_SUBTRACT, GL_MAX);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_DST_ALPHA, GL_ONE);
    glEnable(GL_SCISSOR_TEST);
    glScissor(1, 2, 3, 1);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_GEQUAL);
    glDepthMask(GL_FALSE);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_FRONT_AND_BACK);
    glEnable(GL_STENCIL_TEST);
    glStencilFunc(GL_NEVER, 0, 0);
    glViewport(5, 6, 7, 8);
    glBindBuffer(GL_ARRAY_BUFFER, arrayBuffer);
}

void ExpectUnusualState(unsigned arrayBuffer) {
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_EQ(GL_FUNC_SUBTRACT, Get(GL_BLEND_EQUATION_RGB));
    EXPECT_EQ(GL_MAX, Get(GL_BLEND_EQUATION_ALPHA));
    EXPECT_EQ(GL_SRC_ALPHA, Get(GL_BLEND_SRC_RGB));
    EXPECT_EQ(GL_ONE_MINUS_SRC_ALPHA, Get(GL_BLEND_DST_RGB));
    EXPECT_EQ(GL_DST_ALPHA, Get(GL_BLEND_SRC_ALPHA));
    EXPECT_EQ(GL_ONE, Get(GL_BLEND_DST_ALPHA));
    EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
    GLint box[4];
    glGetIntegerv(GL_SCISSOR_BOX, box);
    EXPECT_TRUE(box[0] == 1 && box[1] == 2 && box[2] == 3 && box[3] == 1);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_EQ(GL_GEQUAL, Get(GL_DEPTH_FUNC));
    EXPECT_EQ(GL_FALSE, Get(GL_DEPTH_WRITEMASK));
    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    EXPECT_EQ(static_cast<GLint>(arrayBuffer), Get(GL_ARRAY_BUFFER_BINDING));
}

class GlState : public testing::Test {
protected:
    TestContext context;
    Image frame = Noise({32, 16}, 1);
    Image mask = Solid({2, 2}, {255, 255, 255, 90});
    Image sticker = Noise({2, 2}, 3);
    Scene scene;
    unsigned arrayBuffer = 0;
};

TEST_F(GlState, TheCallersStateNeitherReachesThePictureNorIsLost) {
    RendererHarness renderer({VE_OUTPUT_MASKED, VE_MODE_RGBA, 32, 16, VE_MASK_RGBA, 2, 2});
    glGenBuffers(1, &arrayBuffer);
    scene.source = &frame;
    scene.mask = &mask;
    scene.sticker = &sticker;
    scene.stickers = {{16, 12}};
    SetUnusualState(arrayBuffer);
    renderer.expectShows(scene);
    ExpectUnusualState(arrayBuffer);

    EXPECT_FALSE(glIsEnabled(GL_STENCIL_TEST));
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_TRUE(viewport[0] == 0 && viewport[1] == 0 && viewport[2] == 32 && viewport[3] == 16);
}

TEST_F(GlState, BindingsEndWhereTheTableSays) {
    RendererHarness renderer({VE_OUTPUT_MASKED, VE_MODE_RGBA, 32, 16, VE_MASK_RGBA, 2, 2});
    scene.source = &frame;
    scene.mask = &mask;
    renderer.show(scene);
    EXPECT_EQ(0, Get(GL_CURRENT_PROGRAM));
    EXPECT_EQ(0, Get(GL_VERTEX_ARRAY_BINDING));
    EXPECT_EQ(0, Get(GL_DRAW_FRAMEBUFFER_BINDING));
    EXPECT_EQ(0, Get(GL_READ_FRAMEBUFFER_BINDING));
    EXPECT_EQ(0, Get(GL_PIXEL_UNPACK_BUFFER_BINDING));
    EXPECT_EQ(GL_TEXTURE1, Get(GL_ACTIVE_TEXTURE));
    EXPECT_NE(0, GetOnUnit(GL_TEXTURE0, GL_TEXTURE_BINDING_2D));
    EXPECT_EQ(0, GetOnUnit(GL_TEXTURE1, GL_TEXTURE_BINDING_2D));

    scene.sticker = &sticker;
    renderer.show(scene);
    EXPECT_EQ(GL_TEXTURE2, Get(GL_ACTIVE_TEXTURE));
    EXPECT_NE(0, GetOnUnit(GL_TEXTURE1, GL_TEXTURE_BINDING_2D));
    EXPECT_EQ(0, GetOnUnit(GL_TEXTURE2, GL_TEXTURE_BINDING_2D));
    EXPECT_EQ(GLenum{GL_NO_ERROR}, glGetError());
}

TEST_F(GlState, NullDataLeavesThePendingBufferBoundForUnpacking) {
    RendererHarness renderer({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 32, 16, 0, 0, 0});
    scene.source = &frame;
    renderer.show(scene);
    VEUpdateRenderer(renderer.handle, nullptr, 0, true, nullptr);
    EXPECT_NE(0, Get(GL_PIXEL_UNPACK_BUFFER_BINDING));
}

TEST_F(GlState, TheCallersVertexArrayLosesItsIndexBuffer) {
    RendererHarness renderer({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 32, 16, 0, 0, 0});
    unsigned vertexArray = 0;
    unsigned indexBuffer = 0;
    glGenVertexArrays(1, &vertexArray);
    glGenBuffers(1, &indexBuffer);
    glBindVertexArray(vertexArray);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    scene.source = &frame;
    renderer.show(scene);
    glBindVertexArray(vertexArray);
    EXPECT_EQ(0, Get(GL_ELEMENT_ARRAY_BUFFER_BINDING));
}

TEST_F(GlState, CreationLeavesVertexArrayZeroWithoutAttributes) {
    for (unsigned location = 0; location < 9; ++location) {
        glEnableVertexAttribArray(location);
    }
    RendererHarness renderer({VE_OUTPUT_PICTURE, VE_MODE_RGBA, 32, 16, 0, 0, 0});
    EXPECT_EQ(0, Get(GL_VERTEX_ARRAY_BINDING));
    for (unsigned location = 0; location < 9; ++location) {
        GLint enabled = -1;
        glGetVertexAttribiv(location, GL_VERTEX_ATTRIB_ARRAY_ENABLED, &enabled);
        EXPECT_EQ(GL_FALSE, enabled);
    }
    EXPECT_NE(0, Get(GL_ARRAY_BUFFER_BINDING));
}

}  // namespace
