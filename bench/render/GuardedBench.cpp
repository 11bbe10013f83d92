// The guarded renderer's frame beside that of the seven functions, and what it costs to give back
// all GL state.

#include <GLES3/gl3.h>
#include <benchmark/benchmark.h>

#include <vector>

#include "Contest.h"
#include "offscreen/OffscreenContext.h"
#include "render/VERendererExt.h"

namespace {

constexpr int kWarmUpRounds = 10;
constexpr int kRounds = 240;
constexpr int kDrawsPerRound = 4;

GLuint MakeTarget() {
    GLuint name = 0;
    glGenTextures(1, &name);
    return name;
}

/// Raw RGBA frames, drawn one call later, from both ways in.
class GuardedContest {
public:
    GuardedContest(int width, int height)
        : pixels_(size_t{4} * static_cast<size_t>(width) * static_cast<size_t>(height), 90) {
        VERendererMode mode = {VE_OUTPUT_PICTURE, VE_MODE_RGBA, width, height, 0, 0, 0};
        VECreateRendererHandle(&seven_, static_cast<int>(MakeTarget()), &mode, nullptr);
        VERendererOptions options = VEMakeRendererOptions();
        options.source = VE_SOURCE_RGBA;
        options.sourceWidth = width;
        options.sourceHeight = height;
        for (VERenderer*& guarded : guarded_) {
            options.outputTexture = MakeTarget();
            VECreateRenderer(&options, &guarded);
            options.keepState = true;
        }
    }
    ~GuardedContest() {
        VEDestroyRenderer(seven_);
        VECloseRenderer(guarded_[0], VE_CONTEXT_CURRENT);
        VECloseRenderer(guarded_[1], VE_CONTEXT_CURRENT);
    }
    GuardedContest(const GuardedContest&) = delete;
    GuardedContest& operator=(const GuardedContest&) = delete;

    std::vector<Interleaved::Work> works() {
        return {Repeat(kDrawsPerRound,
                       [this] {
                           VEUpdateRenderer(seven_, pixels_.data(), 0, true, nullptr);
                           glFinish();
                       }),
                drawGuarded(guarded_[0]), drawGuarded(guarded_[1])};
    }

private:
    Interleaved::Work drawGuarded(VERenderer* renderer) {
        return Repeat(kDrawsPerRound, [this, renderer] {
            VEDrawOptions options = VEMakeDrawOptions();
            options.frame = pixels_.data();
            VEDraw(renderer, &options, nullptr);
            glFinish();
        });
    }

    OffscreenContext context_;
    std::vector<unsigned char> pixels_;
    void* seven_ = nullptr;
    VERenderer* guarded_[2] = {};  ///< Without keepState, and with it.
};

void GuardedFrames(benchmark::State& state) {
    enum : size_t { kSeven, kGuarded, kKeepState };
    GuardedContest contest(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const Interleaved times = RunContest(state, contest.works(), kWarmUpRounds);
    state.counters["seven ms"] = times.medianMilliseconds(kSeven) / kDrawsPerRound;
    state.counters["guarded ms"] = times.medianMilliseconds(kGuarded) / kDrawsPerRound;
    state.counters["keepState ms"] = times.medianMilliseconds(kKeepState) / kDrawsPerRound;
    state.counters["guarded/seven"] = times.medianRatio(kGuarded, kSeven);
    state.counters["keepState/guarded"] = times.medianRatio(kKeepState, kGuarded);
}

// The smallest shows the calls alone.
BENCHMARK(GuardedFrames)
    ->ArgNames({"width", "height"})
    ->Args({16, 16})
    ->Args({640, 480})
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
