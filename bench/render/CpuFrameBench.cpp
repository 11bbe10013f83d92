#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "BareRenderer.h"
#include "Contest.h"
#include "TexturePixels.h"
#include "offscreen/OffscreenContext.h"
#include "render/VERenderer.h"

namespace {

using Bytes = std::vector<unsigned char>;

constexpr int kWarmUpRounds = 10;
constexpr int kRounds = 48;
constexpr int kStickerSize = 64;
constexpr size_t kStickerBytes = size_t{4} * kStickerSize * kStickerSize;

/// Noise with runs of zeros, so that a mask has black pixels and others.
Bytes MakePixels(size_t size) {
    Bytes pixels(size);
    uint32_t noise = 1;
    for (size_t i = 0; i < size; ++i) {
        noise = noise * 1664525U + 1013904223U;
        pixels[i] = i / 256 % 4 == 0 ? 0 : static_cast<unsigned char>(noise >> 24U);
    }
    return pixels;
}

/// Positions in rows of ten, starting at the first row of the frame.
VEStickerList SpreadStickers(const FrameCase& frame) {
    constexpr int kColumns = 10;
    VEStickerList stickers;
    for (int i = 0; i < frame.stickers; ++i) {
        stickers.emplace_back((2 * (i % kColumns) + 1) * frame.width / (2 * kColumns),
                              (2 * (i / kColumns) + 1) * frame.height / (2 * kColumns));
    }
    return stickers;
}

/// One stream that the library draws, with the calls of an application.
class LibraryRenderer {
public:
    LibraryRenderer(const FrameCase& frame, GLuint stickerTexture)
        : stickerTexture_(static_cast<int>(stickerTexture)) {
        VERendererMode mode = {};
        mode.outputMode = frame.masked ? VE_OUTPUT_MASKED : VE_OUTPUT_PICTURE;
        mode.modeType = frame.alpha ? VE_MODE_RGBA : VE_MODE_RGB;
        mode.maskFormat = frame.alpha ? VE_MASK_RGBA : VE_MASK_RGB;
        mode.textureWidth = mode.maskWidth = frame.width;
        mode.textureHeight = mode.maskHeight = frame.height;
        glGenTextures(1, &target_);
        VECreateRendererHandle(&handle_, static_cast<int>(target_), &mode, nullptr);
    }
    ~LibraryRenderer() { VEDestroyRenderer(handle_); }
    LibraryRenderer(const LibraryRenderer&) = delete;
    LibraryRenderer& operator=(const LibraryRenderer&) = delete;

    void draw(void* pixels, void* mask, VEStickerList& stickers) {
        if (stickers.empty()) {
            VEUpdateRenderer(handle_, pixels, 0, true, mask);
        } else {
            VEUpdateRendererWithSticker(handle_, pixels, 0, true, mask, stickerTexture_, stickers);
        }
    }

    GLuint target() const { return target_; }

private:
    void* handle_ = nullptr;
    GLuint target_ = 0;
    int stickerTexture_;
};

/// Compares the library with two programs of plain GL code: one has a shader equivalent to the
/// library's, one the simplest shader that gives the same picture.
class FrameContest {
public:
    explicit FrameContest(const FrameCase& frame)
        : frame_(frame),
          pixels_(MakePixels(frame.bytes() * (frame.masked ? 2 : 1))),
          copied_(pixels_.size()),
          stickers_(SpreadStickers(frame)) {}

    Interleaved::Work drawOurs() {
        return [this] {
            ours_.draw(pixels_.data(), mask(), stickers_);
            glFinish();
        };
    }

    Interleaved::Work drawBare(BareRenderer& renderer) {
        return [this, &renderer] {
            renderer.draw(pixels_.data(), mask(), stickers_);
            glFinish();
        };
    }

    Interleaved::Work copy() {
        return [this] {
            std::memcpy(copied_.data(), pixels_.data(), pixels_.size());
            benchmark::ClobberMemory();
        };
    }

    std::vector<Interleaved::Work> works() {
        return {drawOurs(), drawBare(bare_), drawBare(lean_), copy()};
    }

    bool picturesAreEqual() const {
        const Bytes picture = read(ours_.target());
        return picture == read(bare_.target()) && picture == read(lean_.target());
    }

private:
    Bytes read(GLuint texture) const { return ReadTexture(texture, frame_.width, frame_.height); }

    unsigned char* mask() { return frame_.masked ? pixels_.data() + frame_.bytes() : nullptr; }

    OffscreenContext context_;
    FrameCase frame_;
    Bytes pixels_;  ///< The frame, then its mask.
    Bytes copied_;
    VEStickerList stickers_;
    GLuint stickerTexture_ =
        MakeTexture(GL_RGBA, kStickerSize, kStickerSize, MakePixels(kStickerBytes).data());
    LibraryRenderer ours_{frame_, stickerTexture_};
    BareRenderer bare_{frame_, ShaderKind::kEquivalent, stickerTexture_};
    BareRenderer lean_{frame_, ShaderKind::kLean, stickerTexture_};
};

void Report(benchmark::State& state, const Interleaved& times) {
    enum : size_t { kOurs, kBare, kLean, kCopy };
    state.counters["ours ms"] = times.medianMilliseconds(kOurs);
    state.counters["bare ms"] = times.medianMilliseconds(kBare);
    state.counters["lean ms"] = times.medianMilliseconds(kLean);
    state.counters["memcpy ms"] = times.medianMilliseconds(kCopy);
    state.counters["ours faults"] = times.meanPageFaults(kOurs);
    state.counters["ours/bare"] = times.medianRatio(kOurs, kBare);
    state.counters["ours/lean"] = times.medianRatio(kOurs, kLean);
}

FrameCase CaseOf(const benchmark::State& state) {
    return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), state.range(2) == 4,
            state.range(3) != 0, static_cast<int>(state.range(4))};
}

void CpuFrames(benchmark::State& state) {
    const FrameCase frame = CaseOf(state);
    state.SetLabel(LabelOf(frame));
    FrameContest contest(frame);
    Report(state, RunContest(state, contest.works(), kWarmUpRounds));
    if (!contest.picturesAreEqual()) {
        throw std::runtime_error("the renderers do not draw the same picture");
    }
}

void AddCases(benchmark::internal::Benchmark* frames) {
    frames->ArgNames({"width", "height", "channels", "mask", "stickers"});
    static constexpr int64_t kSizes[][2] = {{640, 480}, {1280, 720}, {1920, 1080}};
    for (const auto& [width, height] : kSizes) {
        for (const int64_t channels : {3, 4}) {
            frames->Args({width, height, channels, 0, 0});
            frames->Args({width, height, channels, 1, 0});
        }
        frames->Args({width, height, 4, 0, 10});
        frames->Args({width, height, 4, 0, 100});
    }
}

BENCHMARK(CpuFrames)->Apply(AddCases)->Iterations(kRounds)->UseManualTime()->Unit(
    benchmark::kMillisecond);

}  // namespace
