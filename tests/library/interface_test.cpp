#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>

#include "gl/GLES3.h"
#include "render/VERendererExt.h"
#include "src/Render/VERendererBase.h"
#include "support/LogCapture.h"
#include "support/RendererHarness.h"

namespace {

const char* missingFunction = "";

}  // namespace

/// Replaces EGL's, to hide a GL function.
extern "C" auto eglGetProcAddress(const char* name) -> void (*)() {
    if (std::strcmp(name, missingFunction) == 0) {
        return nullptr;
    }
    using Lookup = void (*(*)(const char*))();
    static const auto real = reinterpret_cast<Lookup>(dlsym(RTLD_NEXT, "eglGetProcAddress"));
    return real(name);
}

namespace {

int placeholder;
void* const kUntouched = &placeholder;

VERendererMode Mode(int32_t outputMode, int32_t modeType) {
    return {outputMode, modeType, 16, 8, VE_MASK_RGBA, 4, 4};
}

TEST(Interface, CreationRefusesBadArgumentsAndLeavesTheHandle) {
    TestContext context;
    LogCapture::Take();
    VERendererMode mode = Mode(0, VE_MODE_RGBA);
    void* handle = kUntouched;
    EXPECT_EQ(VECreateRendererHandle(&handle, 1, nullptr, nullptr), -1);
    EXPECT_EQ(VECreateRendererHandle(&handle, -1, &mode, nullptr), -1);
    EXPECT_EQ(VECreateRendererHandleWithFormat(&handle, 1, 3, nullptr, nullptr), -1);
    EXPECT_EQ(VECreateRendererHandleWithFormat(&handle, -1, 3, &mode, nullptr), -1);
    EXPECT_EQ(handle, kUntouched);
    EXPECT_TRUE(LogCapture::Take().empty());
    EXPECT_EQ(VECreateRendererHandle(&handle, 0, &mode, nullptr), 0);
    EXPECT_NE(handle, kUntouched) << "0 is a name";
    VEDestroyRenderer(handle);
}

TEST(Interface, UnsupportedModeTypesCreateNothingAndSaySoByTheHandleOnly) {
    TestContext context;
    for (const int32_t modeType : {-1, 0, 1, 4, 7, 0x7FFFFFFF}) {
        VERendererMode mode = Mode(0, modeType);
        void* handle = kUntouched;
        EXPECT_EQ(VECreateRendererHandle(&handle, 1, &mode, nullptr), 0);
        EXPECT_EQ(VECreateRendererHandleWithFormat(&handle, 1, 3, &mode, nullptr), 0);
        EXPECT_EQ(handle, kUntouched) << modeType;
    }
}

TEST(Interface, NullHandlesAreRefused) {
    VEStickerList stickers;
    EXPECT_EQ(VEUpdateRenderer(nullptr, nullptr, 0, true, nullptr), -1);
    EXPECT_EQ(VEUpdateRendererWithSticker(nullptr, nullptr, 0, true, nullptr, 1, stickers), -1);
    EXPECT_EQ(VEUpdateCompressedData(nullptr, nullptr, 0), -1);
    EXPECT_EQ(VEUpdateUserPosition(nullptr, 0, 0, 0, 0), -1);
    VEDestroyRenderer(nullptr);
}

TEST(Interface, LifeIsLoggedOnceEachUnderTheRenderersTag) {
    TestContext context;
    LogCapture::Take();
    VERendererMode mode = {0, VE_MODE_RGBA, 640, 480, 0, 32, 24};
    void* handle = nullptr;
    VECreateRendererHandle(&handle, 7, &mode, nullptr);
    VEUpdateRenderer(handle, nullptr, 0, true, nullptr);
    VEDestroyRenderer(handle);

    EXPECT_EQ(
        LogCapture::Take(),
        (LogCapture::Lines{
            {4, "VEGLES3Renderer",
             "\n VEGLES3Renderer textureId(7), textureWidth (640), textureHieght(480),"
             "extractWidth(32), extractHeight(24) .. ######renderer\n"},
            {4, "VEGPUData2TextureFilter",
             "GeneratorSourceTexture, m_sourceWidth(640), m_sourceHeight(480) ...###renderer"},
            {4, "VEGLES3Renderer", "\n VEGLES3Renderer Destroy.. ######renderer\n"}}));
}

/// The index of a virtual function, as the C++ ABI has it in a pointer to the member.
template <typename Member>
size_t SlotOf(Member member) {
    uintptr_t words[2];
    std::memcpy(words, &member, sizeof(words));
    return words[0] / sizeof(void*);
}

TEST(Interface, TheVirtualFunctionsKeepTheirOrder) {
    EXPECT_EQ(SlotOf(&VERendererBase::Update), 0U);
    EXPECT_EQ(SlotOf(&VERendererBase::Destroy), 1U);
    EXPECT_EQ(SlotOf(&VERendererBase::UpdateCompressedData), 2U);
    EXPECT_EQ(SlotOf(&VERendererBase::UpdateUserPosition), 3U);
}

/// With a loader that fails: exits with 42 when both kinds of renderer log that and go on, and the
/// guarded way in reports it.
void CreateWithoutAFunction() {
    const OffscreenContext context;
    missingFunction = "glBindVertexArrayOES";
    LogCapture::Take();
    void* handle = kUntouched;
    VERendererMode raw = Mode(0, VE_MODE_RGBA);
    VERendererMode compressed = Mode(0, VE_MODE_H264);
    VECreateRendererHandle(&handle, 1, &raw, nullptr);
    VECreateRendererHandle(&handle, 1, &compressed, nullptr);
    LogCapture::Lines lines = LogCapture::Take();
    lines.erase(lines.begin() + 1);
    lines.pop_back();
    const LogCapture::Lines expected = {
        {4, "VEGPUTextureFilterBase",
         "\n Failed to load GLES3 core entry points! ...###debug_renderer\n"},
        {4, "VEOESRenderer", "\n Failed to load GLES3 core entry points! ...######renderer\n"}};
    const bool reported = VECheckSource(VE_SOURCE_RGB) == VE_ERROR_GL_VERSION;
    _exit(lines == expected && reported ? 42 : 1);
}

TEST(InterfaceDeathTest, AMissingGlFunctionIsLoggedOnly) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // A fresh process: the table loads once.
    EXPECT_EXIT(CreateWithoutAFunction(), testing::ExitedWithCode(42), "");
}

TEST(Interface, OtherOutputModesDrawNothing) {
    TestContext context;
    const Image frame = Noise({16, 8}, 1);
    const Image before = Noise({16, 8}, 2);
    RendererHarness renderer(Mode(2, VE_MODE_RGBA));
    Fill(renderer.texture, before);
    Scene scene;
    scene.source = &frame;
    renderer.show(scene);
    EXPECT_EQ(renderer.readBack().pixels, before.pixels);
    EXPECT_EQ(VEUpdateUserPosition(renderer.handle, 1, 2, 3, 4), 0);
    char unit[4] = {};
    EXPECT_EQ(VEUpdateCompressedData(renderer.handle, unit, sizeof(unit)), 0);
}

}  // namespace
