// How long the destruction of a renderer of compressed video takes, from each way in.

#include <GLES3/gl3.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Clip.h"
#include "Jvm.h"
#include "offscreen/OffscreenContext.h"
#include "render/VERenderer.h"
#include "render/VERendererExt.h"

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;
constexpr size_t kUnits = 8;
constexpr int kRounds = 20;

/// What the decoder does when its renderer ends.
struct Case {
    const char* name;
    HostBehavior behavior;
    size_t units;  ///< Queued before.
};

Case Failing(const char* name, uint32_t calls) {
    HostBehavior behavior = {};
    behavior.failing = calls;
    return {name, behavior, 0};
}

Case Delayed(const char* name, int64_t delayUs) {
    HostBehavior behavior = {};
    behavior.outputDelayUs = delayUs;
    return {name, behavior, kUnits};
}

/// A renderer with units in its decoder.
class Life {
public:
    virtual ~Life() = default;
    virtual void queue(const AVPacket& unit) = 0;
    virtual void end() = 0;
};

class SevenFunctionsLife : public Life {
public:
    explicit SevenFunctionsLife(unsigned texture) {
        VERendererMode mode = {VE_OUTPUT_PICTURE, VE_MODE_H264, kWidth, kHeight, 0, 0, 0};
        VECreateRendererHandle(&handle_, static_cast<int>(texture), &mode, Jvm());
    }
    void queue(const AVPacket& unit) override {
        VEUpdateCompressedData(handle_, unit.data, unit.size);
    }
    void end() override { VEDestroyRenderer(handle_); }

private:
    void* handle_ = nullptr;
};

class GuardedLife : public Life {
public:
    explicit GuardedLife(unsigned texture) {
        VERendererOptions options = VEMakeRendererOptions();
        options.source = VE_SOURCE_H264;
        options.sourceWidth = kWidth;
        options.sourceHeight = kHeight;
        options.outputTexture = texture;
        options.javaVM = Jvm();
        const VEResult result = VECreateRenderer(&options, &renderer_);
        if (result != VE_OK) {
            throw std::runtime_error(VEResultText(result));
        }
    }
    void queue(const AVPacket& packet) override {
        VEUnit unit = VEMakeUnit();
        unit.data = packet.data;
        unit.size = static_cast<size_t>(packet.size);
        unit.waitUs = 2000;
        VEQueueUnit(renderer_, &unit);
    }
    void end() override { VECloseRenderer(renderer_, VE_CONTEXT_CURRENT); }

private:
    VERenderer* renderer_ = nullptr;
};

template <class AnyLife>
double EndSeconds(const Case& scene, const Clip& clip, unsigned texture) {
    HostDecoder_setBehavior(nullptr, &scene.behavior);
    AnyLife life(texture);
    for (size_t i = 0; i < scene.units; ++i) {
        life.queue(*clip.units[i]);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const auto start = std::chrono::steady_clock::now();
    life.end();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

template <class AnyLife>
void Measure(benchmark::State& state, const std::string& label, const Case& scene) {
    const OffscreenContext context;
    const Clip clip = GenerateClip(kWidth, kHeight, kUnits);
    unsigned texture = 0;
    glGenTextures(1, &texture);
    std::vector<double> seconds;
    for ([[maybe_unused]] auto round : state) {
        seconds.push_back(EndSeconds<AnyLife>(scene, clip, texture));
        state.SetIterationTime(seconds.back());
    }
    std::sort(seconds.begin(), seconds.end());
    state.counters["median ms"] = 1000 * seconds[seconds.size() / 2];
    state.counters["longest ms"] = 1000 * seconds.back();
    state.SetLabel(label + ", " + scene.name);
}

template <class AnyLife>
void Register(const std::string& label, const std::vector<Case>& scenes) {
    for (const Case& scene : scenes) {
        benchmark::RegisterBenchmark(
            ("Destruction/" + label + "/" + scene.name).c_str(),
            [label, scene](benchmark::State& state) { Measure<AnyLife>(state, label, scene); })
            ->Iterations(kRounds)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
}

const int registered = [] {
    std::vector<Case> scenes = {{"waiting", {}, 0},
                                {"decoding", {}, kUnits},
                                Delayed("calls of 10 ms", 10'000),
                                Delayed("calls of 1 s", 1'000'000),
                                Failing("failing", HOST_CALL_DEQUEUE_OUTPUT)};
    Register<GuardedLife>("VERendererExt.h", scenes);
    scenes.push_back(Failing("no decoder", HOST_CALL_CREATE));
    Register<SevenFunctionsLife>("VERenderer.h", scenes);
    return 0;
}();

}  // namespace
