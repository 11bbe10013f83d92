// What VEDestroyRenderer leaves in the context, and what it deletes besides.

#include <gtest/gtest.h>

#include "gl/GLES3.h"
#include "support/RendererHarness.h"

namespace {

constexpr GLuint kNames = 100;
constexpr GLuint kNoMask = 0xFFFFFFFF;

template <typename Function>
int Count(Function is) {
    int found = 0;
    for (GLuint name = 1; name < kNames; ++name) {
        found += is(name);
    }
    return found;
}

/// Creates a renderer, draws with it, and destroys it.
void Live(bool masked, bool stickers, bool unbind) {
    RendererHarness renderer({masked ? 1 : 0, VE_MODE_RGBA, 32, 16, VE_MASK_RGBA, 2, 2});
    if (unbind) {
        glBindBuffer(GL_ARRAY_BUFFER, 0);
    }
    const Image frame = Noise({32, 16}, 1);
    const Image mask = Noise({2, 2}, 2);
    Scene scene;
    scene.source = &frame;
    scene.mask = masked ? &mask : nullptr;
    scene.sticker = stickers ? &mask : nullptr;
    scene.stickers = {{16, 12}, {3, 14}};
    renderer.show(scene);
}

TEST(Ownership, DestructionLeavesWhatTheHeaderLists) {
    for (const unsigned life : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U}) {
        SCOPED_TRACE(life);
        const TestContext context;
        const bool masked = (life & 1U) != 0;
        const bool stickers = (life & 2U) != 0;
        const bool unbind = (life & 4U) != 0;
        Live(masked, stickers, unbind);
        EXPECT_EQ(Count(glIsBuffer), 2 + (masked ? 2 : 0) + (stickers && !unbind ? 1 : 0));
        EXPECT_EQ(Count(glIsShader), 2);
        EXPECT_EQ(Count(glIsTexture) + Count(glIsProgram) + Count(glIsVertexArray), 0);
        EXPECT_EQ(Count(glIsFramebuffer), 0);
        EXPECT_EQ(glIsTexture(kNoMask), masked ? GL_FALSE : GL_TRUE);
    }
}

TEST(Ownership, DestructionDeletesFramebuffersThatAreNamedLikePixelBuffers) {
    const TestContext context;
    std::vector<GLuint> framebuffers(20);
    glGenFramebuffers(20, framebuffers.data());
    for (const GLuint framebuffer : framebuffers) {
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    }
    Live(true, false, false);
    EXPECT_EQ(Count(glIsFramebuffer), 16);
    for (const GLuint framebuffer : framebuffers) {
        EXPECT_NE(glIsFramebuffer(framebuffer), glIsBuffer(framebuffer)) << framebuffer;
    }
}

}  // namespace
