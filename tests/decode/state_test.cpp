// What the renderer of compressed video does to the caller's GL state, and what else of its calls
// shows in the real world only.

#include <GLES3/gl3.h>
// After gl3.h, whose types it uses.
#include <GLES2/gl2ext.h>

#include <functional>

#include "DecodeFixture.h"
#include "GlSnapshot.h"

namespace {

using Names = std::set<std::string>;

class State : public DecodeTest {
protected:
    State() { glGenTextures(1, &texture_); }
    ~State() override {
        HostDecoder_release(decoder_);
        VEDestroyRenderer(handle_);
    }

    void Create(int outputMode = VE_OUTPUT_PICTURE) {
        VERendererMode mode = {outputMode, VE_MODE_H264, 320, 240, VE_MASK_RGBA, 1, 1};
        VECreateRendererHandle(&handle_, static_cast<int>(texture_), &mode, Machine());
    }

    void Feed() {
        decoder_ = HostDecoder_acquire();
        HostDecoder_setLockStep(decoder_, 1);
        for (TestUnit& unit : Encode(ChangingStream(), 3)) {
            const auto size = static_cast<int>(unit.bytes.size());
            EXPECT_EQ(VEUpdateCompressedData(handle_, unit.bytes.data(), size), 0);
        }
    }

    Image ReadTarget() const {
        Image image(Size{320, 240});
        unsigned framebuffer = 0;
        glGenFramebuffers(1, &framebuffer);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer);
        glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture_,
                               0);
        glReadPixels(0, 0, 320, 240, GL_RGBA, GL_UNSIGNED_BYTE, image.pixels.data());
        return image;
    }

    void AwaitFrame(int64_t seen) {
        EXPECT_EQ(HostDecoder_waitForFrame(decoder_, seen, 10'000'000, nullptr), HOST_READY);
    }

    unsigned texture_ = 0;
    void* handle_ = nullptr;
    HostDecoder* decoder_ = nullptr;
};

/// State that would ruin every picture and upload that it reached.
class HostileState {
public:
    HostileState() {
        glGenTextures(1, &texture_);
        glGenBuffers(1, &buffer_);
        glGenFramebuffers(1, &framebuffer_);
        glGenVertexArrays(1, &vertexArray_);
        glLinkProgram(program_);
    }

    /// \param unpacking a buffer is bound for uploads to come from.
    void Set(bool unpacking) const {
        for (GLenum unit = 0; unit < 8; ++unit) {
            glActiveTexture(GL_TEXTURE0 + unit);
            glBindTexture(GL_TEXTURE_2D, texture_);
            glBindTexture(GL_TEXTURE_EXTERNAL_OES, 0);
        }
        glActiveTexture(GL_TEXTURE5);
        glBindBuffer(GL_ARRAY_BUFFER, buffer_);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, unpacking ? buffer_ : 0);
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
        glCullFace(GL_FRONT_AND_BACK);
        glEnable(GL_STENCIL_TEST);
        glStencilFunc(GL_NEVER, 0, 0);
        glViewport(5, 6, 7, 8);
        glUseProgram(program_);
        glBindVertexArray(vertexArray_);
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
    }

    GLuint Texture() const { return texture_; }

private:
    static GLuint Shader(GLenum stage, const char* text) {
        const GLuint shader = glCreateShader(stage);
        glShaderSource(shader, 1, &text, nullptr);
        glCompileShader(shader);
        return shader;
    }
    static GLuint Program() {
        const GLuint program = glCreateProgram();
        glAttachShader(program, Shader(GL_VERTEX_SHADER, "void main() { gl_Position = vec4(2); }"));
        glAttachShader(program, Shader(GL_FRAGMENT_SHADER, "void main() { discard; }"));
        return program;
    }

    GLuint texture_ = 0;
    GLuint buffer_ = 0;
    GLuint framebuffer_ = 0;
    GLuint vertexArray_ = 0;
    GLuint program_ = Program();
};

/// What a draw of output mode 0 changes with unit 5 active.
const Names kChangedByDraw = {"GL_ACTIVE_TEXTURE",
                              "GL_CURRENT_PROGRAM",
                              "GL_DRAW_FRAMEBUFFER_BINDING",
                              "GL_READ_FRAMEBUFFER_BINDING",
                              "GL_STENCIL_TEST",
                              "GL_TEXTURE_BINDING_2D 1",
                              "GL_TEXTURE_BINDING_EXTERNAL_OES 0",
                              "GL_TEXTURE_BINDING_EXTERNAL_OES 5",
                              "GL_VERTEX_ARRAY_BINDING",
                              "GL_VIEWPORT"};

TEST_F(State, EveryCallChangesOnlyWhatTheHeaderLists) {
    const HostileState hostile;
    const auto changedBy = [&](bool unpacking, const std::function<void()>& call) {
        hostile.Set(unpacking);
        const GlSnapshot before;
        call();
        Names changed = GlSnapshot().ChangedSince(before);
        EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
        return changed;
    };
    EXPECT_EQ(changedBy(true, [this] { Create(); }),
              (Names{"GL_ARRAY_BUFFER_BINDING", "GL_VERTEX_ARRAY_BINDING"}));
    EXPECT_EQ(changedBy(true, [this] { Feed(); }), Names());
    EXPECT_EQ(changedBy(true, [this] { VEUpdateUserPosition(handle_, 1, 1, 1, 1); }), Names());
    const auto update = [this] {
        EXPECT_EQ(VEUpdateRenderer(handle_, nullptr, 0, true, nullptr), 0);
    };
    // The first draw makes objects; the second has them; the third has nothing new to upload.
    for (int64_t seen = 0; seen < 3; ++seen) {
        AwaitFrame(seen);
        EXPECT_EQ(changedBy(seen > 0, update), kChangedByDraw);
    }
    EXPECT_EQ(changedBy(true, update), kChangedByDraw);
    EXPECT_EQ(changedBy(true,
                        [this] {
                            VEDestroyRenderer(handle_);
                            handle_ = nullptr;
                        }),
              Names());

    // None of it reached the picture.
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    const Image image = ReadTarget();
    const int grey = (30 + 37 * 2 - 16) * 255 / 219;
    EXPECT_NEAR(image.At(300, 200)[0], grey, 2);
    EXPECT_NEAR(image.At(319, 239)[0], grey, 2);
}

TEST_F(State, MasksAndStickersAddWhatTheHeaderLists) {
    const HostileState hostile;
    Create(VE_OUTPUT_MASKED);
    Feed();
    AwaitFrame(0);
    uint8_t mask[] = {255, 255, 255, 90};
    VEStickerList stickers = {{160, 120}};
    const auto update = [&] {
        VEUpdateRendererWithSticker(handle_, nullptr, 0, true, mask,
                                    static_cast<int>(hostile.Texture()), stickers);
    };
    update();  // Makes the mask's texture.
    update();
    hostile.Set(false);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    const GlSnapshot before;
    update();
    Names expected = kChangedByDraw;
    expected.insert({"GL_TEXTURE_BINDING_2D 2", "GL_TEXTURE_BINDING_2D 5"});
    EXPECT_EQ(GlSnapshot().ChangedSince(before), expected);
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

TEST_F(State, EndsWhileTheDecoderHasMoreToGive) {
    Create();
    Feed();
    AwaitFrame(0);
    // No update, no end of the stream: destroyed by the fixture in the midst of it.
}

TEST_F(State, IgnoresUnitsOfNoSize) {
    Create();
    Feed();
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
