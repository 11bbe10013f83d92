// What the calls leave of the caller's GL state, as the public header's table promises.

#include <gtest/gtest.h>

#include <optional>

#include "gl/GLES3.h"
#include "support/GlSnapshot.h"
#include "support/RendererHarness.h"

namespace {

constexpr VERendererMode kPlain = {VE_OUTPUT_PICTURE, VE_MODE_RGBA, 32, 16, 0, 0, 0};
constexpr VERendererMode kMasked = {VE_OUTPUT_MASKED, VE_MODE_RGBA, 32, 16, VE_MASK_RGBA, 2, 2};

GLint Get(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

class GlState : public testing::Test {
protected:
    /// One update of the hostile state.
    StateNames changedByUpdate(RendererHarness& renderer) {
        hostile.Set();
        return ChangedBy([&] { renderer.update(scene); });
    }

    TestContext context;
    HostileState hostile;
    Image frame = Noise({32, 16}, 1);
    Image mask = Solid({2, 2}, {255, 255, 255, 90});
    Image sticker = Noise({2, 2}, 3);
    Scene scene;
};

TEST_F(GlState, EveryCallChangesOnlyWhatTheHeaderLists) {
    scene.source = &frame;
    scene.mask = &mask;
    std::optional<RendererHarness> renderer;
    hostile.SetUnpacking();
    EXPECT_EQ(ChangedBy([&] { renderer.emplace(kMasked); }),
              (StateNames{"GL_ARRAY_BUFFER_BINDING", "GL_VERTEX_ARRAY_BINDING"}));
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    // Two updates make textures, which become unit 5's; the third makes what a draw needs.
    EXPECT_EQ(changedByUpdate(*renderer), (StateNames{"GL_TEXTURE_BINDING_2D 5"}));
    EXPECT_EQ(changedByUpdate(*renderer), (StateNames{"GL_TEXTURE_BINDING_2D 5"}));
    StateNames changed = ChangedByDraw({"GL_TEXTURE_BINDING_2D 0", "GL_TEXTURE_BINDING_2D 5"});
    EXPECT_EQ(changedByUpdate(*renderer), changed);
    EXPECT_EQ(changedByUpdate(*renderer), changed);
    ExpectShows(renderer->readBack(), scene);

    scene.sticker = &sticker;
    scene.stickers = {{16, 12}};
    renderer->show(scene);
    changed.insert("GL_TEXTURE_BINDING_2D 2");
    EXPECT_EQ(changedByUpdate(*renderer), changed);
    ExpectShows(renderer->readBack(), scene);
    hostile.SetUnpacking();
    EXPECT_EQ(ChangedBy([&] { renderer.reset(); }), StateNames());
}

TEST_F(GlState, NullDataLeavesThePendingBufferBoundForUnpacking) {
    RendererHarness renderer(kPlain);
    scene.source = &frame;
    renderer.show(scene);
    VEUpdateRenderer(renderer.handle, nullptr, 0, true, nullptr);
    EXPECT_NE(Get(GL_PIXEL_UNPACK_BUFFER_BINDING), 0);
}

}  // namespace
