// From any GL state the picture is right, and with keepState the state is, too.

#include <GLES3/gl32.h>
#include <gtest/gtest.h>

#include <functional>

#include "ext/ExtRenderer.h"
#include "gl/GLES3.h"
#include "support/HostileState.h"
#include "support/StateTable.h"

namespace {

class ExtState : public testing::TestWithParam<std::tuple<bool, unsigned>> {
protected:
    TestContext context;
    HostileState hostile{std::get<1>(GetParam())};
    Image frame = Opaque(Noise({31, 17}, 1));
    Image mask = Opaque(Noise({5, 3}, 2));
    Image sticker = Noise({2, 2}, 3);
    Scene scene;
    std::vector<unsigned> textures = std::vector<unsigned>(6);

    /// Another object at each binding.
    void bindToEverything() {
        unsigned buffers[3];
        unsigned samplers[2];
        unsigned framebuffers[2];
        glGenBuffers(3, buffers);
        glGenSamplers(2, samplers);
        glGenFramebuffers(2, framebuffers);
        glGenTextures(6, textures.data());
        for (GLuint unit = 0; unit < 3; ++unit) {
            glActiveTexture(GL_TEXTURE0 + unit);
            glBindTexture(GL_TEXTURE_2D, textures[unit]);
            glBindTexture(GL_TEXTURE_EXTERNAL_OES, textures[unit + 3]);
            glBindSampler(unit, samplers[unit % 2]);
        }
        glSamplerParameteri(samplers[0], GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
        glBindBuffer(GL_ARRAY_BUFFER, buffers[0]);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffers[1]);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffers[2]);
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffers[0]);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffers[1]);
    }

    void setHostileState() {
        hostile.SetUnpacking();
        bindToEverything();
        for (const GLenum capability :
             {GL_RASTERIZER_DISCARD, GL_PRIMITIVE_RESTART_FIXED_INDEX, GL_SAMPLE_COVERAGE,
              GL_SAMPLE_ALPHA_TO_COVERAGE, GL_POLYGON_OFFSET_FILL}) {
            glEnable(capability);
        }
        glDisablei(GL_BLEND, 1);
        glColorMaski(2, GL_TRUE, GL_TRUE, GL_FALSE, GL_FALSE);
        glColorMaski(0, GL_FALSE, GL_TRUE, GL_FALSE, GL_FALSE);
        glSampleCoverage(0, GL_FALSE);
        glPixelStorei(GL_UNPACK_SKIP_ROWS, 3);
        glPixelStorei(GL_UNPACK_SKIP_PIXELS, 5);
        glActiveTexture(GL_TEXTURE2);
    }
};

/// Expects a result without a GL error. Errors of before do not count: not every context knows all
/// of the hostile state.
void ExpectDone(const std::function<VEResult()>& call) {
    while (glGetError() != GL_NO_ERROR) {
    }
    EXPECT_EQ(VE_OK, call());
    EXPECT_EQ(GLenum{GL_NO_ERROR}, glGetError());
}

TEST_P(ExtState, PictureAndStateAreRightFromAnyState) {
    VERendererOptions options = WithMask(OptionsOf(VE_SOURCE_RGB, 31, 17), mask, VE_MASK_RGB);
    options.keepState = std::get<0>(GetParam());
    options.drawLater = std::get<1>(GetParam()) % 2 == 0;
    options.drawOnce = std::get<1>(GetParam()) == 1;
    const unsigned stickerTexture = NewTexture();
    Fill(stickerTexture, sticker);
    const int32_t place[] = {15, 15};
    VEDrawOptions draw = VEMakeDrawOptions();
    const std::vector<uint8_t> frameBytes = Packed(&frame, true);
    const std::vector<uint8_t> maskBytes = Packed(&mask, true);
    draw.frame = frameBytes.data();
    draw.mask = maskBytes.data();
    draw.stickerTexture = stickerTexture;
    draw.stickers = place;
    draw.stickerCount = 1;
    glEnable(GL_DITHER);
    setHostileState();

    VERenderer* renderer = nullptr;
    const StateTable table("VERendererExt.h");
    table.expectKept({"creation", {}},
                     [&] { ExpectDone([&] { return VECreateRenderer(&options, &renderer); }); });
    bool pending = false;
    for (const bool pixels : {true, true, false, false}) {
        draw.frame = pixels || options.drawOnce ? frameBytes.data() : nullptr;
        draw.mask = pixels ? maskBytes.data() : nullptr;
        draw.hideMask = pixels;  // Frames are copied, later ones drawn.
        StateNames given;
        if (options.drawLater ? pending : draw.frame != nullptr) {
            given.insert("upload");
        }
        if (!options.drawLater || pending || !pixels) {
            given.insert("picture");
        }
        pending = pixels;
        setHostileState();
        table.expectKept({options.keepState ? "" : "draw", given, 31, 17},
                         [&] { ExpectDone([&] { return VEDraw(renderer, &draw, nullptr); }); });
    }
    setHostileState();
    table.expectKept({"closing", {}}, [&] {
        ExpectDone([&] { return VECloseRenderer(renderer, VE_CONTEXT_CURRENT); });
    });

    scene.source = &frame;
    scene.mask = &mask;
    scene.sticker = &sticker;
    scene.stickers = {{15, 15}};
    scene.zoom = VE_ZOOM_FIT;
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    ExpectShows(ReadBack(options.outputTexture, {31, 17}), scene);
}

INSTANTIATE_TEST_SUITE_P(KeepState, ExtState,
                         testing::Combine(testing::Bool(), testing::Range(0U, 4U)));

TEST(ExtTransformFeedback, GoesOn) {
    const TestContext context;
    const Image frame = Noise({31, 17}, 1);
    const unsigned target = NewTexture();
    const char* vertexShader =
        "#version 300 es\nout float v;void main(){v=1.0;gl_Position=vec4(0);}";
    const char* fragmentShader = "#version 300 es\nvoid main(){}";
    const GLuint program = glCreateProgram();
    for (const auto& [stage, text] :
         {std::pair{GL_VERTEX_SHADER, vertexShader}, {GL_FRAGMENT_SHADER, fragmentShader}}) {
        const GLuint shader = glCreateShader(static_cast<GLenum>(stage));
        glShaderSource(shader, 1, &text, nullptr);
        glCompileShader(shader);
        glAttachShader(program, shader);
    }
    const char* varying = "v";
    glTransformFeedbackVaryings(program, 1, &varying, GL_INTERLEAVED_ATTRIBS);
    glLinkProgram(program);
    unsigned buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBufferBase(GL_TRANSFORM_FEEDBACK_BUFFER, 0, buffer);
    glBufferData(GL_TRANSFORM_FEEDBACK_BUFFER, 64, nullptr, GL_DYNAMIC_COPY);

    VERendererOptions options = OptionsOf(VE_SOURCE_RGB, 31, 17);
    options.keepState = true;
    unsigned framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    Fill(target, frame);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, target, 0);
    glUseProgram(program);
    glBeginTransformFeedback(GL_POINTS);
    {
        ExtRenderer renderer(options);
        renderer.drawFrame(&frame);
    }
    GLint paused = GL_TRUE;
    glGetIntegerv(GL_TRANSFORM_FEEDBACK_PAUSED, &paused);
    EXPECT_EQ(GL_FALSE, paused);
    glDrawArrays(GL_POINTS, 0, 1);
    glEndTransformFeedback();
    EXPECT_EQ(GLenum{GL_NO_ERROR}, glGetError());
}

}  // namespace
