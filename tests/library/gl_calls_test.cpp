// Order and arguments of the GL calls.

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "StoredText.h"
#include "support/GlRecorder.h"
#include "support/LogCapture.h"
#include "support/RendererHarness.h"
#include "support/Replaced.h"

namespace {

const VERendererMode kPlain = {VE_OUTPUT_PICTURE, VE_MODE_RGB, 4, 2, 0, 0, 0};
const VERendererMode kMasked = {VE_OUTPUT_MASKED, VE_MODE_RGB, 4, 2, VE_MASK_RGBA, 2, 2};

class GlCalls : public testing::Test {
protected:
    static void update(RendererHarness& renderer, void* mask = nullptr, int sticker = -1,
                       VEStickerList stickers = {}) {
        static uint8_t pixels[4 * 2 * 4] = {};
        VEUpdateRendererWithSticker(renderer.handle, pixels, 0, true, mask, sticker, stickers);
    }

    /// The calls of a renderer's life, each part under its name.
    template <typename Parts>
    static std::string lifeOf(const VERendererMode& mode, int format, const Parts& parts) {
        const GlRecorder recorder;
        std::string life;
        const auto note = [&life](const std::string& part) {
            life += "# " + part + "\n";
            for (const std::string& call : GlRecorder::take()) {
                // GL gives locations, except -1.
                life +=
                    std::regex_replace(call, std::regex(R"(^(glUniform\w+\()\d+)"), "$1location");
                life += "\n";
            }
        };
        {
            RendererHarness renderer(mode, format);
            note("creation");
            parts(renderer, note);
            VEDestroyRenderer(std::exchange(renderer.handle, nullptr));
            note("destruction");
        }
        return life;
    }

    TestContext context;
    std::vector<uint8_t> mask = std::vector<uint8_t>(16);
};

TEST_F(GlCalls, LivesAreTheStoredSequences) {
    std::string lives = lifeOf(kPlain, VE_FORMAT_RGB, [](auto& renderer, auto& note) {
        for (const char* call : {"first update", "first draw", "update", "update"}) {
            update(renderer);
            note(call);
        }
        update(renderer, nullptr, 77, {{1, 1}, {-1, -1}, {2, 0}});
        note("update with two stickers and a hidden one");
        update(renderer, nullptr, -1, {{1, 1}});
        note("update with stickers without a texture");
    });
    lives += lifeOf(kMasked, VE_FORMAT_RGBA, [this](auto& renderer, auto& note) {
        for (int call = 0; call < 4; ++call) {
            update(renderer, mask.data());
        }
        note("four masked updates");
    });
    lives += lifeOf(kPlain, VE_FORMAT_RGBA, [](auto&, auto&) {});
    ExpectStored(lives, "gl_calls.txt");
}

TEST_F(GlCalls, TheStickerListMayGrowDuringTheDraw) {
    RendererHarness renderer(kPlain);
    update(renderer);
    static VEStickerList stickers;
    static int draws;
    draws = 0;
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

/// The numbers of the error checks that one update makes when every check finds an error.
std::vector<int> CheckedLines(RendererHarness& renderer, void* mask, int stickerTexture,
                              VEStickerList stickers = {}) {
    static uint8_t pixels[4 * 2 * 3] = {};
    static size_t errors = 0;
    errors = 0;
    const Replaced fails(GLES3::glGetError, [] {
        ++errors;
        return GLenum{GL_INVALID_VALUE};
    });
    LogCapture::Take();
    VEUpdateRendererWithSticker(renderer.handle, pixels, 0, true, mask, stickerTexture, stickers);
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
