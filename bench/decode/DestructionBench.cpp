// How long the destruction of a renderer of compressed video takes, from each way in.

#include <GLES3/gl3.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
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
    size_t units;  ///< Queued before.
    int64_t outputDelayUs;
    uint32_t failing;
};

constexpr Case kCases[] = {{"waiting", 0, 0, 0},
                           {"decoding", kUnits, 0, 0},
                           {"calls of 10 ms", kUnits, 10'000, 0},
                           {"calls of 1 s", kUnits, 1'000'000, 0},
                           {"failing", 0, 0, HOST_CALL_DEQUEUE_OUTPUT},
                           {"no decoder", 0, 0, HOST_CALL_CREATE}};

/// A renderer with units in its decoder.
class Life {
public:
    virtual ~Life() = default;
    virtual void queue(const AVPacket& unit) = 0;
    virtual void end() = 0;
};

class SevenFunctionsLife : public Life {
public:
    static constexpr const char* kHeader = "VERenderer.h";

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
    static constexpr const char* kHeader = "VERendererExt.h";

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
    HostBehavior behavior = {};
    behavior.failing = scene.failing;
    behavior.outputDelayUs = scene.outputDelayUs;
    HostDecoder_setBehavior(nullptr, &behavior);
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
void Destruction(benchmark::State& state) {
    const Case& scene = kCases[state.range(0)];
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
    state.SetLabel(std::string(AnyLife::kHeader) + ", " + scene.name);
}

void Configure(benchmark::internal::Benchmark* destruction) {
    destruction->Iterations(kRounds)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK_TEMPLATE(Destruction, SevenFunctionsLife)->DenseRange(0, 5)->Apply(Configure);
BENCHMARK_TEMPLATE(Destruction, GuardedLife)->DenseRange(0, 4)->Apply(Configure);

}  // namespace
