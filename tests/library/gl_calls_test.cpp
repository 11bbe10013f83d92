// Order and arguments of the GL calls.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/GlRecorder.h"
#include "support/LogCapture.h"
#include "support/RendererHarness.h"

namespace {

using Calls = std::vector<std::string>;

const VERendererMode kPlain = {VE_OUTPUT_PICTURE, VE_MODE_RGB, 4, 2, 0, 0, 0};
const VERendererMode kMasked = {VE_OUTPUT_MASKED, VE_MODE_RGB, 4, 2, VE_MASK_RGBA, 2, 2};

Calls Joined(std::initializer_list<Calls> parts) {
    Calls all;
    for (const Calls& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

/// The calls that start with one of the names, in order.
Calls Only(const Calls& calls, std::initializer_list<const char*> names) {
    Calls chosen;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(chosen), [&](const auto& call) {
        return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
            return call.compare(0, name.size() + 1, name + "(") == 0;
        });
    });
    return chosen;
}

Calls SaveState() {
    Calls calls;
    for (const GLenum name :
         {GL_BLEND, GL_BLEND_DST_ALPHA, GL_BLEND_DST_RGB, GL_BLEND_EQUATION_ALPHA,
          GL_BLEND_EQUATION_RGB, GL_BLEND_SRC_ALPHA, GL_BLEND_SRC_RGB, GL_ARRAY_BUFFER_BINDING,
          GL_SCISSOR_TEST, GL_SCISSOR_BOX, GL_DEPTH_TEST, GL_DEPTH_FUNC, GL_DEPTH_WRITEMASK,
          GL_CULL_FACE}) {
        calls.push_back("glGetIntegerv(" + std::to_string(name) + ",address)");
    }
    return calls;
}

/// With GL's initial state saved.
Calls RestoreState(int arrayBuffer) {
    return {Call("glBlendEquationSeparate", GL_FUNC_ADD, GL_FUNC_ADD),
            Call("glBlendFuncSeparate", GL_ONE, GL_ZERO, GL_ONE, GL_ZERO),
            Call("glDisable", GL_BLEND),
            Call("glBindBuffer", GL_ARRAY_BUFFER, arrayBuffer),
            Call("glBindVertexArrayOES", 0),
            Call("glDisable", GL_SCISSOR_TEST),
            Call("glScissor", 0, 0, 0, 0),
            Call("glDisable", GL_DEPTH_TEST),
            Call("glDepthFunc", GL_LESS),
            Call("glDepthMask", 1),
            Call("glDisable", GL_CULL_FACE)};
}

Calls BeginTarget(int framebuffer) {
    return {Call("glBindFramebuffer", GL_FRAMEBUFFER, framebuffer),
            Call("glDisable", GL_DEPTH_TEST),
            Call("glDisable", GL_SCISSOR_TEST),
            Call("glDisable", GL_STENCIL_TEST),
            Call("glDisable", GL_CULL_FACE),
            Call("glDisable", GL_BLEND),
            "glInvalidateFramebuffer(" + std::to_string(GL_FRAMEBUFFER) + ",2,address)",
            Call("glViewport", 0, 0, 4, 2),
            Call("glClear", GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT),
            Call("glBindBuffer", GL_ARRAY_BUFFER, 0),
            Call("glBindBuffer", GL_ELEMENT_ARRAY_BUFFER, 0)};
}

Calls Unbind() {
    return {Call("glBindVertexArrayOES", 0), Call("glBindVertexArray", 0), Call("glUseProgram", 0),
            Call("glBindTexture", GL_TEXTURE_2D, 0), Call("glBindFramebuffer", GL_FRAMEBUFFER, 0)};
}

int LastBound(GLenum binding) {
    GLint name = 0;
    glGetIntegerv(binding, &name);
    return name;
}

class GlCalls : public testing::Test {
protected:
    static void update(RendererHarness& renderer, void* mask = nullptr) {
        static uint8_t pixels[4 * 2 * 4] = {};
        VEUpdateRenderer(renderer.handle, pixels, 0, true, mask);
    }

    TestContext context;
};

TEST_F(GlCalls, TheFirstCallMakesTheSourceTextureAndItsTwoBuffers) {
    RendererHarness renderer(kPlain);
    GlRecorder recorder;
    update(renderer);
    const Calls calls = recorder.take();
    const std::string image = "glTexImage2D(" + std::to_string(GL_TEXTURE_2D) + ",0," +
                              std::to_string(GL_RGB) + ",4,2,0," + std::to_string(GL_RGB) + "," +
                              std::to_string(GL_UNSIGNED_BYTE) + ",address)";
    ASSERT_EQ(calls.size(), 14U);
    EXPECT_EQ(calls[0], "glGenTextures(1,address)");
    EXPECT_EQ(calls[2], Call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST));
    EXPECT_EQ(calls[3], Call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST));
    EXPECT_EQ(calls[4],
              Call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE));
    EXPECT_EQ(calls[5],
              Call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE));
    EXPECT_EQ(calls[6], image);
    EXPECT_EQ(calls[7], Call("glBindTexture", GL_TEXTURE_2D, 0));
    EXPECT_EQ(calls[8], "glGenBuffers(2,address)");
    EXPECT_EQ(calls[10], Call("glBufferData", GL_PIXEL_UNPACK_BUFFER, 24, nullptr, GL_STREAM_DRAW));
    EXPECT_EQ(calls[10], calls[12]);
    EXPECT_NE(calls[9], calls[11]);
    EXPECT_EQ(calls[13], Call("glBindBuffer", GL_PIXEL_UNPACK_BUFFER, 0));
}

TEST_F(GlCalls, UploadsAlternateBuffersAndOrphanThem) {
    RendererHarness renderer(kPlain);
    update(renderer);
    update(renderer);
    GlRecorder recorder;
    Calls bound[3];
    for (Calls& calls : bound) {
        update(renderer);
        const Calls all = recorder.take();
        const Calls upload(all.begin(), all.begin() + 9);
        EXPECT_EQ(upload,
                  Calls({upload[0], upload[1],
                         Call("glTexSubImage2D", GL_TEXTURE_2D, 0, 0, 0, 4, 2, GL_RGB,
                              GL_UNSIGNED_BYTE, nullptr),
                         upload[3],
                         Call("glBufferData", GL_PIXEL_UNPACK_BUFFER, 24, nullptr, GL_STREAM_DRAW),
                         Call("glMapBufferRange", GL_PIXEL_UNPACK_BUFFER, 0, 24, GL_MAP_WRITE_BIT),
                         Call("glUnmapBuffer", GL_PIXEL_UNPACK_BUFFER),
                         Call("glBindBuffer", GL_PIXEL_UNPACK_BUFFER, 0),
                         Call("glBindTexture", GL_TEXTURE_2D, 0)}));
        calls = {upload[1], upload[3]};  // The buffer read from, the buffer written to.
    }
    EXPECT_EQ(bound[0][0], bound[1][1]);
    EXPECT_EQ(bound[0][1], bound[1][0]);
    EXPECT_EQ(bound[0], bound[2]);
    EXPECT_NE(bound[0][0], bound[0][1]);
}

TEST_F(GlCalls, ADrawIsThisSequence) {
    RendererHarness renderer(kPlain);
    for (int i = 0; i < 3; ++i) {
        update(renderer);
    }
    GlRecorder recorder;
    update(renderer);
    Calls calls = recorder.take();
    // Names that GL gave: framebuffer, program, locations and the source texture.
    const std::string source = calls[0];
    const Calls draw(calls.begin() + 9, calls.end());
    const Calls programs = Only(draw, {"glUseProgram"});
    const Calls arrays = Only(draw, {"glBindVertexArray"});
    const Calls framebuffers = Only(draw, {"glBindFramebuffer"});
    const Calls uniforms = Only(draw, {"glUniformMatrix4fv", "glUniform1i"});
    ASSERT_EQ(uniforms.size(), 5U);
    const int framebuffer = std::stoi(framebuffers[0].substr(framebuffers[0].find(',') + 1));
    const Calls expected = Joined(
        {SaveState(),
         BeginTarget(framebuffer),
         {programs[0], uniforms[0], uniforms[1], uniforms[2], Call("glActiveTexture", GL_TEXTURE0),
          source, uniforms[3], Call("glActiveTexture", GL_TEXTURE1),
          Call("glBindTexture", GL_TEXTURE_2D, 0xFFFFFFFFU), Call("glUniform1i", -1, 1), arrays[0],
          Call("glDrawElements", GL_TRIANGLES, 6, GL_UNSIGNED_SHORT, nullptr)},
         Unbind(),
         RestoreState(LastBound(GL_ARRAY_BUFFER_BINDING))});
    EXPECT_EQ(expected, draw);
    EXPECT_EQ(uniforms[4], Call("glUniform1i", -1, 1));
}

TEST_F(GlCalls, EachStickerRebuildsTheOneMeshAndHiddenOnesNothing) {
    RendererHarness renderer(kPlain);
    update(renderer);
    update(renderer);
    GlRecorder recorder;
    VEStickerList stickers = {{1, 1}, {-1, -1}, {2, 0}};
    VEUpdateRendererWithSticker(renderer.handle, nullptr, 0, true, nullptr, 77, stickers);
    const Calls all = recorder.take();
    EXPECT_EQ(Only(all, {"glDrawElements"}).size(), 3U);
    const Calls mesh = Only(all, {"glDeleteVertexArrays", "glDeleteBuffers", "glGenBuffers",
                                  "glGenVertexArrays", "glDrawElements"});
    const Calls once = {"glDeleteVertexArrays(1,address)", "glDeleteBuffers(1,address)",
                        "glDeleteBuffers(1,address)",      "glGenBuffers(1,address)",
                        "glGenBuffers(1,address)",         "glGenVertexArrays(1,address)"};
    const Calls draw = {Call("glDrawElements", GL_TRIANGLES, 6, GL_UNSIGNED_SHORT, nullptr)};
    EXPECT_EQ(mesh, Joined({draw, once, draw, once, draw}));
    const Calls textures = Only(all, {"glActiveTexture", "glBindTexture"});
    EXPECT_EQ(textures[textures.size() - 3], Call("glActiveTexture", GL_TEXTURE2));
    EXPECT_EQ(textures[textures.size() - 2], Call("glBindTexture", GL_TEXTURE_2D, 77));
    EXPECT_EQ(textures[textures.size() - 1], Call("glBindTexture", GL_TEXTURE_2D, 0));

    VEUpdateRendererWithSticker(renderer.handle, nullptr, 0, true, nullptr, -1, stickers);
    EXPECT_TRUE(Only(recorder.take(), {"glDeleteVertexArrays", "glGenBuffers"}).empty());
}

TEST_F(GlCalls, TheStickerListMayGrowDuringTheDraw) {
    RendererHarness renderer(kPlain);
    update(renderer);
    static VEStickerList stickers;
    static int draws = 0;
    static decltype(GLES3::glDrawElements) real = nullptr;
    stickers = {{1, 1}};
    real = std::exchange(GLES3::glDrawElements, [](auto... arguments) {
        if (++draws == 2) {  // The picture, then the first sticker.
            stickers.resize(2, {2, 0});
        }
        real(arguments...);
    });
    VEUpdateRendererWithSticker(renderer.handle, nullptr, 0, true, nullptr, 77, stickers);
    GLES3::glDrawElements = real;
    EXPECT_EQ(draws, 3);
}

TEST_F(GlCalls, TheFirstDrawAllocatesAndAttachesTheDestination) {
    RendererHarness renderer(kPlain, VE_FORMAT_RGB);
    update(renderer);
    GlRecorder recorder;
    update(renderer);
    const Calls all = recorder.take();
    const auto generate = std::find(all.begin(), all.end(), "glGenFramebuffers(1,address)");
    ASSERT_GT(all.end() - generate, 12);
    const auto destination = renderer.texture;
    const Calls expected = {
        Call("glActiveTexture", GL_TEXTURE1),
        Call("glBindTexture", GL_TEXTURE_2D, destination),
        Call("glTexImage2D", GL_TEXTURE_2D, 0, GL_RGB, 4, 2, 0, GL_RGB, GL_UNSIGNED_BYTE, nullptr),
        Call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE),
        Call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE),
        Call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR),
        Call("glTexParameteri", GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR),
        Call("glBindTexture", GL_TEXTURE_2D, 0),
        Call("glActiveTexture", GL_TEXTURE0),
        generate[10],
        Call("glFramebufferTexture2D", GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
             destination, 0),
        Call("glBindFramebuffer", GL_FRAMEBUFFER, 0)};
    EXPECT_EQ(expected, Calls(generate + 1, generate + 13));
}

TEST_F(GlCalls, ReleaseDeletesEverythingButThePixelBuffersWhoseNamesGoToTheFramebuffers) {
    RendererHarness renderer(kMasked);
    std::vector<uint8_t> mask(16);
    for (int i = 0; i < 3; ++i) {
        update(renderer, mask.data());
    }
    GlRecorder recorder;
    VEDestroyRenderer(renderer.handle);
    renderer.handle = nullptr;
    Calls calls = recorder.take();
    ASSERT_EQ(calls.size(), 13U);
    EXPECT_EQ(calls[4].find("glDeleteProgram("), 0U);
    calls[4] = "glDeleteProgram";
    const Calls texture = {"glDeleteFramebuffers(2,address)", "glDeleteTextures(1,address)"};
    const Calls mesh = {"glDeleteVertexArrays(1,address)", "glDeleteBuffers(1,address)",
                        "glDeleteBuffers(1,address)"};
    EXPECT_EQ(calls, Joined({texture,
                             texture,
                             {"glDeleteProgram"},
                             {"glDeleteFramebuffers(1,address)", "glDeleteFramebuffers(1,address)"},
                             mesh,
                             mesh}));
}

TEST_F(GlCalls, ARendererThatNeverDrewDeletesTheProgramItNeverBuilt) {
    RendererHarness renderer(kPlain);
    GlRecorder recorder;
    VEDestroyRenderer(renderer.handle);
    renderer.handle = nullptr;
    EXPECT_EQ(recorder.take().front(), Call("glDeleteProgram", 0xFFFFFFFFU));
}

/// The numbers of the error checks that one update makes when every check finds an error.
std::vector<int> CheckedLines(RendererHarness& renderer, void* mask, int stickerTexture,
                              VEStickerList stickers = {}) {
    static uint8_t pixels[4 * 2 * 3] = {};
    static size_t errors = 0;
    errors = 0;
    const auto real = std::exchange(GLES3::glGetError, [] {
        ++errors;
        return GLenum{GL_INVALID_VALUE};
    });
    LogCapture::Take();
    VEUpdateRendererWithSticker(renderer.handle, pixels, 0, true, mask, stickerTexture, stickers);
    GLES3::glGetError = real;
    std::vector<int> lines;
    const std::string start =
        "OpenGLES error 0x0501 in src/Render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.cpp:";
    for (const LogCapture::Line& line : LogCapture::Take()) {
        EXPECT_EQ(line.tag, "GPUTextureFilter\\VEGPUTextureFilterBase");
        EXPECT_EQ(line.priority, 4);
        EXPECT_EQ(line.text.substr(0, start.size()), start);
        EXPECT_EQ(line.text.back(), '\n');
        lines.push_back(std::stoi(line.text.substr(start.size())));
    }
    EXPECT_EQ(lines.size(), errors) << "one glGetError for each check";
    return lines;
}

TEST_F(GlCalls, ErrorChecksReportTheirNumbersInOrder) {
    const std::vector<int> draw = {242, 243, 244, 245, 246, 254, 255, 257, 258, 259, 260,
                                   261, 282, 283, 286, 287, 288, 314, 315, 316, 317, 318};
    RendererHarness plain(kPlain);
    update(plain);
    std::vector<int> first = {150, 152, 154, 157, 164};
    first.insert(first.end(), draw.begin(), draw.end());
    EXPECT_EQ(CheckedLines(plain, nullptr, -1), first);
    EXPECT_EQ(CheckedLines(plain, nullptr, -1), draw);
    std::vector<int> stickers = draw;
    stickers.insert(stickers.begin() + 17, {293, 294, 295, 308, 308});
    EXPECT_EQ(CheckedLines(plain, nullptr, 5, {{1, 1}, {-1, -1}, {2, 1}}), stickers);

    RendererHarness masked(kMasked);
    std::vector<uint8_t> mask(16);
    update(masked, mask.data());
    update(masked, mask.data());
    first.insert(first.begin() + 4, 161);
    EXPECT_EQ(CheckedLines(masked, mask.data(), -1), first);
}

}  // namespace
