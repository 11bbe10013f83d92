// What a guarded renderer answers where GL has not what it needs.

#include <gtest/gtest.h>

#include <utility>

#include "ext/ExtRenderer.h"
#include "ext/GlNameCount.h"
#include "gl/GLES3.h"
#include "support/LogCapture.h"
#include "support/Replaced.h"

namespace {

constexpr auto kMapsNothing = [](GLenum, GLintptr, GLsizeiptr, GLbitfield) -> void* {
    return nullptr;
};
constexpr auto kUnmapsInVain = [](GLenum) -> GLboolean {
    glUnmapBuffer(GL_PIXEL_UNPACK_BUFFER);
    return GL_FALSE;
};

TEST(ExtFailure, WithoutAContextThereIsAResult) {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = VE_SOURCE_RGB;
    options.sourceWidth = options.sourceHeight = 4;
    options.outputTexture = 1;
    VERenderer* renderer = nullptr;
    EXPECT_EQ(VE_ERROR_NO_CONTEXT, VECheckSource(VE_SOURCE_RGB));
    EXPECT_EQ(VE_ERROR_NO_CONTEXT, VECreateRenderer(&options, &renderer));
}

TEST(ExtFailure, SourcesAreCheckedBeforehand) {
    const TestContext context;
    const int before = CountGlNames();
    for (const int32_t source :
         {VE_SOURCE_RGB, VE_SOURCE_RGBA, VE_SOURCE_TEXTURE_2D, VE_SOURCE_TEXTURE_EXTERNAL}) {
        EXPECT_EQ(VE_OK, VECheckSource(source));
    }
    EXPECT_EQ(VE_ERROR_ARGUMENT, VECheckSource(99));
    const Replaced noExtensions(GLES3::glGetStringi, [](GLenum, GLuint) -> const GLubyte* {
        return reinterpret_cast<const GLubyte*>("");
    });
    EXPECT_EQ(VE_OK, VECheckSource(VE_SOURCE_RGB));
    EXPECT_EQ(VE_ERROR_NO_EXTERNAL, VECheckSource(VE_SOURCE_TEXTURE_EXTERNAL));
    EXPECT_EQ(VE_ERROR_NO_EXTERNAL, VECheckSource(VE_SOURCE_H264));
    const Replaced oldGl(GLES3::glGetString, [](GLenum) -> const GLubyte* {
        return reinterpret_cast<const GLubyte*>("OpenGL ES 2.0");
    });
    EXPECT_EQ(VE_ERROR_GL_VERSION, VECheckSource(VE_SOURCE_RGB));
    EXPECT_EQ(before, CountGlNames());
}

/// A draw that ran out of memory changes nothing, and works when it is tried again.
TEST(ExtFailure, ADrawThatFailedCanBeTriedAgain) {
    const TestContext context;
    const Image frames[2] = {Noise({8, 6}, 1), Noise({8, 6}, 2)};
    VERendererOptions options = OptionsOf(VE_SOURCE_RGBA, 8, 6);
    options.drawLater = true;
    ExtRenderer renderer(options);
    VEDrawOptions draw = VEMakeDrawOptions();
    for (int i = 0; i < 2; ++i) {
        draw.frame = frames[i].pixels.data();
        {
            const Replaced noMemory(GLES3::glMapBufferRange, kMapsNothing);
            EXPECT_EQ(VE_ERROR_MEMORY, VEDraw(renderer.handle, &draw, nullptr));
        }
        {
            const Replaced contentsLost(GLES3::glUnmapBuffer, kUnmapsInVain);
            EXPECT_EQ(VE_ERROR_MEMORY, VEDraw(renderer.handle, &draw, nullptr));
        }
        EXPECT_EQ(i == 1, renderer.draw(draw).picture);
    }
    EXPECT_EQ(frames[0].pixels, renderer.readBack().pixels);
    renderer.drawFrame(nullptr);
    EXPECT_EQ(frames[1].pixels, renderer.readBack().pixels);

    // The same for the programs of masks and stickers.
    const unsigned texture = NewTexture();
    Fill(texture, frames[0]);
    draw.frame = nullptr;
    draw.maskTexture = texture;
    const int names = CountGlNames();
    {
        const Replaced refuses(GLES3::glLinkProgram, [](GLuint) {});
        const Replaced says(GLES3::glGetProgramInfoLog,
                            [](GLuint, GLsizei, GLsizei*, GLchar* text) { *text = '!'; });
        LogCapture::Take();
        EXPECT_EQ(VE_ERROR_GL, VEDraw(renderer.handle, &draw, nullptr));
        EXPECT_EQ("GL refused a program: !", LogCapture::Take().back().text);
        EXPECT_EQ(names, CountGlNames());
    }
    renderer.draw(draw);
    EXPECT_EQ(names + 1, CountGlNames());
}

TEST(ExtFailure, GlOutOfMemoryAtCreationIsAResult) {
    const TestContext context;
    const VERendererOptions options = OptionsOf(VE_SOURCE_RGBA, 8, 6);
    Fill(options.outputTexture, Noise({8, 6}, 1));
    const int before = CountGlNames();
    static bool full;
    full = false;
    const Replaced fullGl(GLES3::glBufferData,
                          [](GLenum, GLsizeiptr, const void*, GLenum) { full = true; });
    const Replaced error(GLES3::glGetError, []() -> GLenum {
        return std::exchange(full, false) ? GL_OUT_OF_MEMORY : GL_NO_ERROR;
    });
    VERenderer* renderer = nullptr;
    EXPECT_EQ(VE_ERROR_MEMORY, VECreateRenderer(&options, &renderer));
    EXPECT_EQ(before, CountGlNames());
}

TEST(ExtFailure, ErrorsOfTheApplicationAreNotTheRenderers) {
    const TestContext context;
    static int errors;
    errors = 3;  // As several flags give them.
    const Replaced error(GLES3::glGetError,
                         []() -> GLenum { return errors-- > 0 ? GL_INVALID_VALUE : GL_NO_ERROR; });
    const ExtRenderer renderer(OptionsOf(VE_SOURCE_RGBA, 8, 6));
}

}  // namespace
