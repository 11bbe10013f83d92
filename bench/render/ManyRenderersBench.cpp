// Several guarded renderers of raw frames on one context, beside as many of bare GL that draw at
// once.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "Contest.h"
#include "DirectRenderer.h"
#include "GuardedFrames.h"
#include "offscreen/OffscreenContext.h"

namespace {

constexpr int kWarmUpRounds = 2;
constexpr int kRounds = 30;
constexpr float kInitialZoom = 2;
constexpr FrameCase kFrame = {640, 480, true, false, 0};

void ManyRenderers(benchmark::State& state) {
    enum : size_t { kGuarded, kCopied, kDirect };
    const auto count = static_cast<size_t>(state.range(0));
    const OffscreenContext context;
    const std::vector<unsigned char> pixels(kFrame.bytes(), 90);
    std::vector<std::unique_ptr<GuardedFrames>> guarded;
    std::vector<DirectRenderer> direct;
    for (size_t i = 0; i < count; ++i) {
        guarded.push_back(std::make_unique<GuardedFrames>(kFrame));
        direct.emplace_back(kFrame, kInitialScale);
    }
    const auto drawGuarded = [&](float zoom) {
        for (const auto& renderer : guarded) {
            renderer->draw(pixels.data(), zoom);
        }
        glFinish();
    };
    const auto drawDirect = [&] {
        for (const DirectRenderer& renderer : direct) {
            renderer.draw(pixels.data());
        }
        glFinish();
    };
    const Interleaved times = RunContest(
        state, {[&] { drawGuarded(kInitialZoom); }, [&] { drawGuarded(VE_ZOOM_FIT); }, drawDirect},
        kWarmUpRounds);
    const auto picturesPerSecond = [&](size_t work) {
        return 1000 * static_cast<double>(count) / times.medianMilliseconds(work);
    };
    state.SetLabel(std::to_string(count) + (count == 1 ? " renderer" : " renderers"));
    state.counters["direct/s"] = picturesPerSecond(kDirect);
    state.counters["guarded/s"] = picturesPerSecond(kGuarded);
    state.counters["copied/s"] = picturesPerSecond(kCopied);
    state.counters["guarded/direct"] = 1 / times.medianRatio(kGuarded, kDirect);
    state.counters["guarded/direct CPU"] = 1 / times.medianProcessorRatio(kGuarded, kDirect);
}

BENCHMARK(ManyRenderers)
    ->ArgName("renderers")
    ->RangeMultiplier(2)
    ->Range(1, 8)
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
