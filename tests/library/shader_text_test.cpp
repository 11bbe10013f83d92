// The texts that reach the compiler, to the byte: drivers cache and work around shaders by them.

#include <gtest/gtest.h>

#include "ShaderText.h"
#include "support/RendererHarness.h"

namespace {

std::vector<std::string> TextsOfFirstDraw(int outputMode) {
    TestContext context;
    const Image frame = Noise({4, 4}, 1);
    const Image mask = Solid({2, 2}, {255, 255, 255, 255});
    RendererHarness renderer({outputMode, VE_MODE_RGBA, 4, 4, VE_MASK_RGBA, 2, 2});
    Scene scene;
    scene.source = &frame;
    scene.mask = &mask;
    const ShaderTextRecorder recorder;
    renderer.show(scene);
    return ShaderTextRecorder::texts();
}

TEST(ShaderText, PlainPictures) {
    const auto texts = TextsOfFirstDraw(VE_OUTPUT_PICTURE);
    ASSERT_EQ(2U, texts.size()) << "one program, built once";
    EXPECT_EQ(StoredShader("filter.vert"), texts[0]);
    EXPECT_EQ(StoredShader("texture2d.frag"), texts[1]);
}

TEST(ShaderText, MaskedPictures) {
    const auto texts = TextsOfFirstDraw(VE_OUTPUT_MASKED);
    ASSERT_EQ(2U, texts.size());
    EXPECT_EQ(StoredShader("filter.vert"), texts[0]);
    EXPECT_EQ(StoredShader("texture2d_masked.frag"), texts[1]);
}

}  // namespace
