// The filters from within: external sources, the choice of shaders, the matrix that reaches GL.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "ShaderText.h"
#include "gl/GLES3.h"
#include "render/GPUTextureFilter/VEGPUData2TextureFilter.h"
#include "render/GPUTextureFilter/VEGPUTexture2TextureFilter.h"
#include "support/LogCapture.h"
#include "support/RendererHarness.h"
#include "support/Replaced.h"

namespace {

constexpr Size kSize = {40, 30};

class Filter : public testing::Test {
protected:
    template <typename FilterKind>
    FilterKind makeFilter() {
        return FilterKind(target, GL_RGBA, GL_RGBA, kSize.width, kSize.height, GL_RGBA, 3, 2);
    }

    void expectShown() { ExpectShows(ReadBack(target, kSize), scene); }

    TestContext context;
    Image picture = Noise(kSize, 1);
    Image mask = Noise({3, 2}, 2);
    unsigned target = NewTexture();
    Scene scene;
};

TEST_F(Filter, DrawsExternalSources) {
    const unsigned source = NewExternalTexture(picture);
    auto filter = makeFilter<GPUTexture2TextureFilter>();
    const ShaderTextRecorder recorder;
    filter.Texture2FilterTexture(source, true, true, -1, {});
    EXPECT_EQ(recorder.texts().at(1), StoredShader("external.frag"));
    filter.UpdateUserPosition(0.2F, 5.0F, 1.0F, 6.0F);
    filter.Texture2FilterTexture(source, false, true, -1, {});
    scene.source = &picture;
    scene.colorMirror = false;
    scene.viewX = 0.2F;
    scene.zoom = 1.0F;
    expectShown();
}

TEST_F(Filter, ErrorChecksOfExternalSourcesReportTheirNumbers) {
    auto filter = makeFilter<GPUTexture2TextureFilter>();
    filter.Texture2FilterTexture(1, true, true, -1, {});
    LogCapture::Take();
    {
        const Replaced fails(GLES3::glGetError, [] { return GLenum{GL_INVALID_VALUE}; });
        filter.Texture2FilterTexture(1, true, true, 5, {});
    }
    std::vector<int> numbers;
    for (const std::string& text : LogCapture::TakeTexts()) {
        numbers.push_back(std::stoi(text.substr(text.rfind(':') + 1)));
    }
    EXPECT_EQ(numbers,
              (std::vector<int>{242, 243, 244, 245, 246, 254, 255, 257, 258, 259, 260, 261, 264,
                                265, 268, 269, 270, 275, 276, 277, 314, 315, 316, 317, 318}));
}

TEST_F(Filter, DrawsExternalSourcesUnderAMask) {
    const unsigned source = NewExternalTexture(picture);
    auto filter = makeFilter<GPUTexture2TextureFilter>();
    const ShaderTextRecorder recorder;
    for (int call = 0; call < 3; ++call) {
        filter.Texture2ExtractFilterTexture(source, true, mask.pixels.data(), true, -1, {});
    }
    EXPECT_EQ(recorder.texts().at(1), StoredShader("external_masked.frag"));
    EXPECT_EQ(
        LogCapture::Take().at(0),
        (LogCapture::Line{4, "VEGPUTexture2TextureFilter",
                          "GeneratorMaskTexture, m_maskWidth(3), m_maskHeight(2) ...###renderer"}));
    scene.source = &picture;
    scene.mask = &mask;
    expectShown();
}

// To the byte: drivers cache shaders and work around them by their texts.
TEST_F(Filter, ShaderTextsOfRawFramesAreTheStoredOnes) {
    auto plain = makeFilter<GPUData2TextureFilter>();
    auto masked = makeFilter<GPUData2TextureFilter>();
    const ShaderTextRecorder recorder;
    for (int call = 0; call < 3; ++call) {
        plain.Draw2FilterTexture(picture.pixels.data(), true, -1, {});
        masked.Draw2ExtractFilterTexture(picture.pixels.data(), true, mask.pixels.data(), -1, {});
    }
    EXPECT_EQ(recorder.texts(),
              (std::vector<std::string>{StoredShader("filter.vert"), StoredShader("texture2d.frag"),
                                        StoredShader("filter.vert"),
                                        StoredShader("texture2d_masked.frag")}));
}

TEST_F(Filter, AFirstDrawWithoutAMaskIsForGood) {
    auto filter = makeFilter<GPUData2TextureFilter>();
    filter.Draw2FilterTexture(picture.pixels.data(), true, -1, {});
    filter.Draw2FilterTexture(picture.pixels.data(), true, -1, {});
    const ShaderTextRecorder recorder;
    for (int call = 0; call < 4; ++call) {
        filter.Draw2ExtractFilterTexture(picture.pixels.data(), true, mask.pixels.data(), -1, {});
    }
    EXPECT_TRUE(recorder.texts().empty());
    scene.source = &picture;
    expectShown();
}

/// The matrix of the next draw.
std::vector<float> DrawnMatrix(GPUTexture2TextureFilter& filter, unsigned source) {
    static std::vector<float> matrix;
    const Replaced recorder(GLES3::glUniformMatrix4fv,
                            [](GLint, GLsizei, GLboolean transpose, const GLfloat* value) {
                                EXPECT_EQ(transpose, GL_FALSE);
                                matrix.assign(value, value + 16);
                            });
    filter.Texture2FilterTexture(source, true, false, -1, {});
    return matrix;
}

uint32_t Bits(float value) {
    uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

TEST_F(Filter, TheMatrixIsExactlyThatOfTheView) {
    const unsigned source = NewTexture();
    Fill(source, picture);
    auto filter = makeFilter<GPUTexture2TextureFilter>();
    const std::vector<float> fresh = DrawnMatrix(filter, source);
    EXPECT_EQ(Bits(fresh[0]), 0x4013309FU);
    EXPECT_EQ(Bits(fresh[5]), 0x4013309FU);
    EXPECT_EQ(Bits(fresh[10]), 0xBF80419AU);
    EXPECT_EQ(-1.0F, fresh[11]);
    EXPECT_EQ(-2.0F * -1.002002F + -0.2002002F, fresh[14]);
    EXPECT_EQ(2.0F, fresh[15]);

    filter.UpdateUserPosition(0.0F, 3.0F, 2.0F, -8.0F);
    EXPECT_EQ(DrawnMatrix(filter, source), fresh);
    filter.UpdateUserPosition(0.5F, 0.0F, 2.0F, 0.0F);
    EXPECT_EQ(DrawnMatrix(filter, source)[12], -0.5F * fresh[0]);
    filter.UpdateUserPosition(0.5F, 0.0F, 8.0F, 0.0F);
    const std::vector<float> behind = DrawnMatrix(filter, source);
    EXPECT_EQ(behind[0], -fresh[0]);
    EXPECT_EQ(behind[5], fresh[5]);
    EXPECT_EQ(behind[12], 0.5F * fresh[0]);
    EXPECT_EQ(behind[15], 1.0F);

    filter.UpdateUserPosition(0.0F, 0.0F, 6.0F, 0.0F);
    for (const float element : DrawnMatrix(filter, source)) {
        EXPECT_TRUE(std::isnan(element));
    }
}

TEST_F(Filter, FormatsWithoutASizeUploadNothing) {
    GLTexture* texture = GPUTextureFilterBase::GeneratorTexture(0x1234, 4, 4, true);
    EXPECT_EQ(texture->m_byteSize, 0U);
    texture->loadData(picture.pixels.data());
    texture->loadData(nullptr);
    GPUTextureFilterBase::DeleteTexture(texture);

    // Without pixel buffers, the image is there at once.
    texture = GPUTextureFilterBase::GeneratorTexture(GL_RGBA, kSize.width, kSize.height, false);
    texture->loadData(picture.pixels.data());
    EXPECT_EQ(ReadBack(texture->m_textureId, kSize).pixels, picture.pixels);
    GPUTextureFilterBase::DeleteTexture(texture);
}

}  // namespace
