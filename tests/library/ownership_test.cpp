// What VEDestroyRenderer leaves in the context, and what it deletes besides.

#include <gtest/gtest.h>

#include "gl/GLES3.h"
#include "support/RendererHarness.h"

namespace {

constexpr GLuint kNames = 100;
constexpr GLuint kNoMask = 0xFFFFFFFF;

VERendererMode Mode(int outputMode) {
    return {outputMode, VE_MODE_RGBA, 32, 16, VE_MASK_RGBA, 2, 2};
}

class Ownership : public testing::Test {
protected:
    template <typename Function>
    static int count(Function is) {
        int found = 0;
        for (GLuint name = 1; name < kNames; ++name) {
            found += is(name);
        }
        return found;
    }

    void live(int outputMode, bool stickers, bool unbind) {
        RendererHarness renderer(Mode(outputMode));
        if (unbind) {
            glBindBuffer(GL_ARRAY_BUFFER, 0);
        }
        scene.mask = outputMode == VE_OUTPUT_MASKED ? &mask : nullptr;
        scene.sticker = stickers ? &mask : nullptr;
        renderer.show(scene);
    }

    TestContext context;
    Image frame = Noise({32, 16}, 1);
    Image mask = Solid({2, 2}, {255, 255, 255, 90});
    Scene scene = [this] {
        Scene made;
        made.source = &frame;
        made.stickers = {{16, 12}, {3, 14}};
        return made;
    }();
};

TEST_F(Ownership, DestructionLeavesWhatTheHeaderLists) {
    for (const int life : {0, 1, 2, 3, 4, 5, 6, 7}) {
        SCOPED_TRACE(life);
        const OffscreenContext own;
        const int masked = life & 1;
        const bool stickers = (life & 2) != 0;
        const bool unbind = (life & 4) != 0;
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        live(masked, stickers, unbind);
        EXPECT_EQ(count(glIsBuffer), 2 + 2 * masked + (stickers && !unbind ? 1 : 0));
        EXPECT_EQ(count(glIsShader), 2);
        EXPECT_EQ(count(glIsTexture) + count(glIsProgram) + count(glIsVertexArray), 0);
        EXPECT_EQ(count(glIsFramebuffer), 0);
        EXPECT_EQ(glIsTexture(kNoMask), masked != 0 ? GL_FALSE : GL_TRUE);
    }
}

TEST_F(Ownership, DestructionDeletesFramebuffersThatAreNamedLikePixelBuffers) {
    GLuint framebuffers[20] = {};
    glGenFramebuffers(20, framebuffers);
    for (const GLuint framebuffer : framebuffers) {
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    }
    live(VE_OUTPUT_MASKED, false, false);
    EXPECT_EQ(count(glIsFramebuffer), 16);
    for (const GLuint framebuffer : framebuffers) {
        EXPECT_NE(glIsFramebuffer(framebuffer), glIsBuffer(framebuffer)) << framebuffer;
    }
}

}  // namespace
