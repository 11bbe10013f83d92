// Stickers of the guarded renderer beside the same copy and the same triangles in bare GL, with one
// buffer and one draw for all of them.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <vector>

#include "BareObjects.h"
#include "Contest.h"
#include "GuardedFrames.h"
#include "TexturePixels.h"
#include "offscreen/OffscreenContext.h"

namespace {

constexpr int kWarmUpRounds = 5;
constexpr int kRounds = 60;
constexpr int kStickerSize = 64;
constexpr FrameCase kFrame = {1280, 720, true, false, 0};

using Bytes = std::vector<unsigned char>;

Bytes Slope(size_t size) {
    Bytes bytes(size);
    for (size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<unsigned char>(i / 16);
    }
    return bytes;
}

/// Rounding decides about the edges of stickers.
bool AreAlike(const Bytes& a, const Bytes& b) {
    double sum = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        sum += std::abs(a[i] - b[i]);
    }
    return sum < 0.5 * static_cast<double>(a.size());
}

/// x, y of each sticker, all over the frame.
std::vector<int32_t> Places(int count) {
    std::vector<int32_t> places;
    for (int i = 0; i < count; ++i) {
        places.push_back(i * 97 % kFrame.width);
        places.push_back(150 + i * 61 % (kFrame.height - 150));
    }
    return places;
}

class BareStickers {
public:
    explicit BareStickers(GLuint sticker)
        : sticker_(sticker),
          source_(MakeTexture(GL_RGBA, kFrame.width, kFrame.height, nullptr)),
          target_(MakeTexture(GL_RGBA, kFrame.width, kFrame.height, nullptr)),
          program_(MakeProgram(ShaderKind::kLean, false, 1)) {
        glGenFramebuffers(2, framebuffers_.data());
        attach(GL_READ_FRAMEBUFFER, framebuffers_[0], source_);
        attach(GL_DRAW_FRAMEBUFFER, framebuffers_[1], target_);
        glGenVertexArrays(1, &vertexArray_);
        glGenBuffers(1, &buffer_);
        glBindVertexArray(vertexArray_);
        glBindBuffer(GL_ARRAY_BUFFER, buffer_);
        pointTo(0, 0);
        pointTo(1, 2 * sizeof(float));
    }

    void draw(const void* pixels, const std::vector<int32_t>& places) {
        glBindTexture(GL_TEXTURE_2D, source_);
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, kFrame.width, kFrame.height, GL_RGBA,
                        GL_UNSIGNED_BYTE, pixels);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffers_[0]);
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffers_[1]);
        glViewport(0, 0, kFrame.width, kFrame.height);
        glBlitFramebuffer(0, 0, kFrame.width, kFrame.height, 0, 0, kFrame.width, kFrame.height,
                          GL_COLOR_BUFFER_BIT, GL_NEAREST);
        fill(places);
        glUseProgram(program_);
        glBindTexture(GL_TEXTURE_2D, sticker_);
        glBindVertexArray(vertexArray_);
        glBindBuffer(GL_ARRAY_BUFFER, buffer_);
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices_.size() * sizeof(float)),
                     vertices_.data(), GL_STREAM_DRAW);
        glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(vertices_.size() / 4));
        glBindVertexArray(0);
    }

    GLuint target() const { return target_; }

private:
    static void attach(GLenum target, GLuint framebuffer, GLuint texture) {
        glBindFramebuffer(target, framebuffer);
        glFramebufferTexture2D(target, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    }

    static void pointTo(GLuint slot, size_t offset) {
        glEnableVertexAttribArray(slot);
        glVertexAttribPointer(slot, 2, GL_FLOAT, GL_FALSE, 4 * sizeof(float),
                              reinterpret_cast<const void*>(offset));
    }

    void fill(const std::vector<int32_t>& places) {
        static constexpr float kCorners[6][2] = {{0, 0}, {1, 1}, {0, 1}, {0, 0}, {1, 0}, {1, 1}};
        vertices_.clear();
        for (size_t i = 0; i < places.size(); i += 2) {
            const float x = 2 * static_cast<float>(places[i]) / kFrame.width - 1;
            const float y = 2 * static_cast<float>(places[i + 1]) / kFrame.height - 1;
            for (const auto& [s, t] : kCorners) {
                vertices_.insert(vertices_.end(),
                                 {x - 0.05F + 0.1F * s, y - 0.2F - 0.2F * t, s, t});
            }
        }
    }

    GLuint sticker_;
    GLuint source_;
    GLuint target_;
    GLuint program_;
    std::array<GLuint, 2> framebuffers_{};
    GLuint vertexArray_ = 0;
    GLuint buffer_ = 0;
    std::vector<float> vertices_;
};

void GuardedStickers(benchmark::State& state) {
    const OffscreenContext context;
    const Bytes pixels = Slope(kFrame.bytes());
    const std::vector<int32_t> places = Places(static_cast<int>(state.range(0)));
    const Bytes color(size_t{4} * kStickerSize * kStickerSize, 200);
    const GLuint sticker = MakeTexture(GL_RGBA, kStickerSize, kStickerSize, color.data());
    const GuardedFrames ours(kFrame);
    BareStickers bare(sticker);
    VEDrawOptions draw = VEMakeDrawOptions();
    draw.frame = pixels.data();
    draw.stickerTexture = sticker;
    draw.stickers = places.data();
    draw.stickerCount = places.size() / 2;
    const auto drawOurs = [&] {
        ours.draw(draw);
        glFinish();
    };
    const auto drawBare = [&] {
        bare.draw(pixels.data(), places);
        glFinish();
    };
    const Interleaved times = RunContest(state, {drawOurs, drawBare}, kWarmUpRounds);
    state.SetLabel(std::to_string(draw.stickerCount) +
                   (draw.stickerCount == 1 ? " sticker" : " stickers"));
    state.counters["ours ms"] = times.medianMilliseconds(0);
    state.counters["bare ms"] = times.medianMilliseconds(1);
    state.counters["ours/bare"] = times.medianRatio(0, 1);
    state.counters["ours/bare CPU"] = times.medianProcessorRatio(0, 1);
    if (!AreAlike(ReadTexture(ours.target(), kFrame.width, kFrame.height),
                  ReadTexture(bare.target(), kFrame.width, kFrame.height))) {
        throw std::runtime_error("the renderers do not draw the same picture");
    }
}

BENCHMARK(GuardedStickers)
    ->ArgName("stickers")
    ->RangeMultiplier(10)
    ->Range(1, 1000)
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
