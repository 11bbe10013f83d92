// From a process with GL loaded to the first drawn raw frame: context, renderer, frame.

#include <benchmark/benchmark.h>

#include <vector>

#include "BareRenderer.h"
#include "Contest.h"
#include "DirectRenderer.h"
#include "GuardedFrames.h"
#include "Phases.h"
#include "offscreen/OffscreenContext.h"
#include "render/VERenderer.h"

namespace {

constexpr int kWarmUpRounds = 2;
constexpr int kRounds = 24;
constexpr float kInitialZoom = 2;

void ShowWithSevenFunctions(const FrameCase& frame, std::vector<unsigned char>& pixels) {
    const OffscreenContext context;
    GLuint target = 0;
    glGenTextures(1, &target);
    VERendererMode mode = {};
    mode.modeType = frame.alpha ? VE_MODE_RGBA : VE_MODE_RGB;
    mode.textureWidth = frame.width;
    mode.textureHeight = frame.height;
    void* renderer = nullptr;
    VECreateRendererHandle(&renderer, static_cast<int>(target), &mode, nullptr);
    for (int call = 0; call < 3; ++call) {  // The third draws the second's frame.
        VEUpdateRenderer(renderer, pixels.data(), 0, true, nullptr);
    }
    glFinish();
    VEDestroyRenderer(renderer);
}

/// Through the same buffers and program: each call draws the frame of the call before.
void ShowBare(const FrameCase& frame, const std::vector<unsigned char>& pixels) {
    const OffscreenContext context;
    BareRenderer renderer(frame, ShaderKind::kEquivalent, 0);
    renderer.draw(pixels.data(), nullptr, {});
    renderer.draw(pixels.data(), nullptr, {});
    glFinish();
}

void ShowGuarded(const FrameCase& frame, const std::vector<unsigned char>& pixels, float zoom,
                 Phases& phases) {
    phases.start();
    const OffscreenContext context;
    phases.lap();
    const GuardedFrames renderer(frame);
    phases.lap();
    renderer.draw(pixels.data(), zoom);
    glFinish();
    phases.lap();
}

void ShowDirect(const FrameCase& frame, const std::vector<unsigned char>& pixels) {
    const OffscreenContext context;
    const DirectRenderer renderer(frame, kInitialScale);
    renderer.draw(pixels.data());
    glFinish();
}

void FirstRawPicture(benchmark::State& state) {
    enum : size_t { kGuarded, kCopied, kSeven, kDirect, kBare };
    const FrameCase frame = {static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                             true, false, 0};
    std::vector<unsigned char> pixels(frame.bytes(), 90);
    Phases drawn(3);
    Phases copied(3);
    const Interleaved times =
        RunContest(state,
                   {[&] { ShowGuarded(frame, pixels, kInitialZoom, drawn); },
                    [&] { ShowGuarded(frame, pixels, VE_ZOOM_FIT, copied); },
                    [&] { ShowWithSevenFunctions(frame, pixels); },
                    [&] { ShowDirect(frame, pixels); }, [&] { ShowBare(frame, pixels); }},
                   kWarmUpRounds);
    state.SetLabel(LabelOf(frame));
    state.counters["context ms"] = drawn.medianMilliseconds(0);
    state.counters["creation ms"] = drawn.medianMilliseconds(1);
    state.counters["draw ms"] = drawn.medianMilliseconds(2);
    state.counters["copy ms"] = copied.medianMilliseconds(2);
    state.counters["direct ms"] = times.medianMilliseconds(kDirect);
    state.counters["guarded/direct"] = times.medianRatio(kGuarded, kDirect);
    state.counters["guarded/direct CPU"] = times.medianProcessorRatio(kGuarded, kDirect);
    state.counters["copied/direct CPU"] = times.medianProcessorRatio(kCopied, kDirect);
    state.counters["seven/bare"] = times.medianRatio(kSeven, kBare);
    state.counters["seven/bare CPU"] = times.medianProcessorRatio(kSeven, kBare);
}

BENCHMARK(FirstRawPicture)
    ->ArgNames({"width", "height"})
    ->Args({640, 480})
    ->Args({1920, 1080})
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
