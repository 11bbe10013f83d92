// What the renderer of compressed video does to the caller's GL state, and what else of its calls
// shows in the real world only.

#include <GLES3/gl3.h>
// After gl3.h, whose types it uses.
#include <GLES2/gl2ext.h>

#include "DecodeFixture.h"

namespace {

GLint Get(GLenum name) {
    GLint value = -1;
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

class DecodeState : public DecodeTest {
protected:
    DecodeState() {
        glGenTextures(1, &texture_);
        VERendererMode mode = {VE_OUTPUT_PICTURE, VE_MODE_H264, 320, 240, 0, 0, 0};
        VECreateRendererHandle(&handle_, static_cast<int>(texture_), &mode, Machine());
        decoder_ = HostDecoder_acquire();
        HostDecoder_setLockStep(decoder_, 1);
        for (TestUnit& unit : Encode(ChangingStream(), 3)) {
            const auto size = static_cast<int>(unit.bytes.size());
            EXPECT_EQ(VEUpdateCompressedData(handle_, unit.bytes.data(), size), 0);
        }
    }
    ~DecodeState() override {
        HostDecoder_release(decoder_);
        VEDestroyRenderer(handle_);
    }

    void AwaitFrame(int64_t seen) {
        EXPECT_EQ(HostDecoder_waitForFrame(decoder_, seen, 10'000'000, nullptr), HOST_READY);
    }

    unsigned texture_ = 0;
    void* handle_ = nullptr;
    HostDecoder* decoder_ = nullptr;
};

TEST_F(DecodeState, ChangesOnlyWhatTheHeaderLists) {
    unsigned names[2];
    glGenBuffers(2, names);
    unsigned texture = 0;
    glGenTextures(1, &texture);
    unsigned framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    // The second draw, with all objects made, and then the first frame of the state that hurts.
    for (int64_t seen = 0; seen < 3; ++seen) {
        AwaitFrame(seen);
        glActiveTexture(GL_TEXTURE3);
        glBindTexture(GL_TEXTURE_2D, texture);
        glActiveTexture(GL_TEXTURE5);
        glBindTexture(GL_TEXTURE_2D, texture);
        glBindTexture(GL_TEXTURE_EXTERNAL_OES, 0);
        glBindBuffer(GL_ARRAY_BUFFER, names[0]);
        if (seen > 0) {
            glBindBuffer(GL_PIXEL_UNPACK_BUFFER, names[1]);
        }
        glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
        glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
        glEnable(GL_BLEND);
        glBlendFunc(GL_ZERO, GL_ZERO);
        glEnable(GL_SCISSOR_TEST);
        glScissor(1, 2, 3, 4);
        glEnable(GL_DEPTH_TEST);
        glDepthFunc(GL_NEVER);
        glDepthMask(GL_FALSE);
        glEnable(GL_CULL_FACE);
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);

        EXPECT_EQ(VEUpdateRenderer(handle_, nullptr, 0, true, nullptr), 0);

        EXPECT_EQ(Get(GL_UNPACK_ALIGNMENT), 8);
        EXPECT_EQ(Get(GL_UNPACK_ROW_LENGTH), 7);
        EXPECT_TRUE(glIsEnabled(GL_BLEND));
        EXPECT_EQ(Get(GL_BLEND_SRC_RGB), GL_ZERO);
        EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
        GLint box[4];
        glGetIntegerv(GL_SCISSOR_BOX, box);
        EXPECT_EQ(box[3], 4);
        EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
        EXPECT_EQ(Get(GL_DEPTH_FUNC), GL_NEVER);
        EXPECT_EQ(Get(GL_DEPTH_WRITEMASK), GL_FALSE);
        EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
        EXPECT_EQ(Get(GL_ARRAY_BUFFER_BINDING), static_cast<GLint>(names[0]));
        EXPECT_EQ(GetOnUnit(GL_TEXTURE3, GL_TEXTURE_BINDING_2D), static_cast<GLint>(texture));

        EXPECT_EQ(Get(GL_PIXEL_UNPACK_BUFFER_BINDING), seen > 0 ? static_cast<GLint>(names[1]) : 0);
        EXPECT_EQ(Get(GL_CURRENT_PROGRAM), 0);
        EXPECT_EQ(Get(GL_VERTEX_ARRAY_BINDING), 0);
        EXPECT_EQ(Get(GL_DRAW_FRAMEBUFFER_BINDING), 0);
        EXPECT_EQ(Get(GL_READ_FRAMEBUFFER_BINDING), 0);
        EXPECT_EQ(Get(GL_ACTIVE_TEXTURE), GL_TEXTURE1);
        const GLint external = GetOnUnit(GL_TEXTURE5, GL_TEXTURE_BINDING_EXTERNAL_OES);
        EXPECT_NE(external, 0);
        EXPECT_EQ(GetOnUnit(GL_TEXTURE0, GL_TEXTURE_BINDING_EXTERNAL_OES), external);
        EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
    }

    // None of it reached the picture.
    Image image(Size{320, 240});
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    unsigned target = 0;
    glGenFramebuffers(1, &target);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, target);
    glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture_, 0);
    glReadPixels(0, 0, 320, 240, GL_RGBA, GL_UNSIGNED_BYTE, image.pixels.data());
    const int grey = (30 + 37 * 2 - 16) * 255 / 219;
    EXPECT_NEAR(image.At(300, 200)[0], grey, 2);
    EXPECT_NEAR(image.At(319, 239)[0], grey, 2);
}

TEST_F(DecodeState, EndsWhileTheDecoderHasMoreToGive) {
    AwaitFrame(0);
    // No update, no end of the stream: destroyed by the fixture in the midst of it.
}

TEST_F(DecodeState, IgnoresUnitsOfNoSize) {
    uint8_t byte = 0;
    for (const int size : {0, -1, INT32_MIN}) {
        EXPECT_EQ(VEUpdateCompressedData(handle_, &byte, size), 0);
    }
    EXPECT_EQ(VEUpdateCompressedData(handle_, nullptr, 7), 0);
    EXPECT_EQ(HostDecoder_endStream(decoder_, 1'000'000), HOST_READY);
    for (int64_t seen = 0; seen < 3; ++seen) {
        AwaitFrame(seen);
        VEUpdateRenderer(handle_, nullptr, 0, true, nullptr);
    }
    EXPECT_EQ(HostDecoder_waitForFrame(decoder_, 3, 10'000'000, nullptr), HOST_ENDED);
}

}  // namespace
