// The guarded renderer's frame beside that of the seven functions and of bare GL, and what it costs
// to give back all GL state.

#include <GLES3/gl3.h>
#include <benchmark/benchmark.h>

#include <vector>

#include "BareRenderer.h"
#include "Contest.h"
#include "offscreen/OffscreenContext.h"
#include "render/VERendererExt.h"

namespace {

constexpr int kWarmUpRounds = 10;
constexpr int kRounds = 120;
constexpr int kDrawsPerRound = 4;

GLuint MakeTarget() {
    GLuint name = 0;
    glGenTextures(1, &name);
    return name;
}

/// Raw frames, drawn one call later or at once.
class GuardedContest {
public:
    explicit GuardedContest(const FrameCase& frame)
        : pixels_(frame.bytes(), 90), bare_(frame, ShaderKind::kLean, 0) {
        VERendererMode mode = {};
        mode.outputMode = VE_OUTPUT_PICTURE;
        mode.modeType = frame.alpha ? VE_MODE_RGBA : VE_MODE_RGB;
        mode.textureWidth = frame.width;
        mode.textureHeight = frame.height;
        VECreateRendererHandle(&seven_, static_cast<int>(MakeTarget()), &mode, nullptr);
        VERendererOptions options = VEMakeRendererOptions();
        options.source = mode.modeType;
        options.sourceWidth = frame.width;
        options.sourceHeight = frame.height;
        atOnce_ = make(options);
        options.keepState = true;
        keepState_ = make(options);
        options.keepState = false;
        options.drawLater = true;
        delayed_ = make(options);
    }
    ~GuardedContest() {
        VEDestroyRenderer(seven_);
        for (VERenderer* renderer : {delayed_, atOnce_, keepState_}) {
            VECloseRenderer(renderer, VE_CONTEXT_CURRENT);
        }
    }
    GuardedContest(const GuardedContest&) = delete;
    GuardedContest& operator=(const GuardedContest&) = delete;

    std::vector<Interleaved::Work> works() {
        return {drawn([this] { bare_.drawAtOnce(pixels_.data()); }),
                drawn([this] { VEUpdateRenderer(seven_, pixels_.data(), 0, true, nullptr); }),
                drawn([this] { draw(delayed_); }), drawn([this] { draw(atOnce_); }),
                drawn([this] { draw(keepState_); })};
    }

private:
    static VERenderer* make(VERendererOptions options) {
        options.outputTexture = MakeTarget();
        VERenderer* renderer = nullptr;
        VECreateRenderer(&options, &renderer);
        return renderer;
    }
    void draw(VERenderer* renderer) const {
        VEDrawOptions options = VEMakeDrawOptions();
        options.frame = pixels_.data();
        VEDraw(renderer, &options, nullptr);
    }
    template <class Draw>
    static Interleaved::Work drawn(Draw draw) {
        return Repeat(kDrawsPerRound, [draw] {
            draw();
            glFinish();
        });
    }

    OffscreenContext context_;
    std::vector<unsigned char> pixels_;
    BareRenderer bare_;
    void* seven_ = nullptr;
    VERenderer* delayed_;
    VERenderer* atOnce_;
    VERenderer* keepState_;  ///< Draws at once, too.
};

void GuardedFrames(benchmark::State& state) {
    enum : size_t { kBare, kSeven, kDelayed, kAtOnce, kKeepState };
    GuardedContest contest({static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                            state.range(2) == 4, false, 0});
    const Interleaved times = RunContest(state, contest.works(), kWarmUpRounds);
    state.counters["bare at once ms"] = times.medianMilliseconds(kBare) / kDrawsPerRound;
    state.counters["seven ms"] = times.medianMilliseconds(kSeven) / kDrawsPerRound;
    state.counters["delayed ms"] = times.medianMilliseconds(kDelayed) / kDrawsPerRound;
    state.counters["at once ms"] = times.medianMilliseconds(kAtOnce) / kDrawsPerRound;
    state.counters["at once/bare"] = times.medianRatio(kAtOnce, kBare);
    state.counters["at once/seven"] = times.medianRatio(kAtOnce, kSeven);
    state.counters["delayed/seven"] = times.medianRatio(kDelayed, kSeven);
    state.counters["keepState/at once"] = times.medianRatio(kKeepState, kAtOnce);
}

// The smallest shows the calls alone.
BENCHMARK(GuardedFrames)
    ->ArgNames({"width", "height", "bytes"})
    ->Args({16, 16, 4})
    ->Args({640, 480, 3})
    ->Args({640, 480, 4})
    ->Args({1280, 720, 4})
    ->Args({1920, 1080, 3})
    ->Args({1920, 1080, 4})
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
