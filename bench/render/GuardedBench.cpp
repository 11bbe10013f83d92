// The guarded renderer's frame beside that of the seven functions and of bare GL, and what it costs
// to give back all GL state.

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <vector>

#include "Contest.h"
#include "DirectRenderer.h"
#include "GuardedFrames.h"
#include "TexturePixels.h"
#include "offscreen/OffscreenContext.h"

namespace {

constexpr int kWarmUpRounds = 5;
constexpr int kRounds = 60;
constexpr int kDrawsPerRound = 2;
constexpr float kInitialZoom = 2;

/// Raw frames that are enlarged, as the seven functions show them without a mask.
class GuardedContest {
public:
    explicit GuardedContest(const FrameCase& frame)
        : frame_(frame),
          pixels_(frame.bytes(), 90),
          direct_(frame, kInitialScale),
          atOnce_(frame),
          keepState_(frame, KeepingState()),
          later_(frame, DrawingLater()),
          once_(frame, DrawingOnce()) {
        VERendererMode mode = {};
        mode.outputMode = VE_OUTPUT_PICTURE;
        mode.modeType = frame.alpha ? VE_MODE_RGBA : VE_MODE_RGB;
        mode.textureWidth = frame.width;
        mode.textureHeight = frame.height;
        glGenTextures(1, &target_);
        VECreateRendererHandle(&seven_, static_cast<int>(target_), &mode, nullptr);
    }
    ~GuardedContest() { VEDestroyRenderer(seven_); }
    GuardedContest(const GuardedContest&) = delete;
    GuardedContest& operator=(const GuardedContest&) = delete;

    std::vector<Interleaved::Work> works() {
        return {drawn([this] { direct_.draw(pixels_.data()); }),
                drawn([this] { VEUpdateRenderer(seven_, pixels_.data(), 0, true, nullptr); }),
                drawn([this] { atOnce_.draw(pixels_.data(), kInitialZoom); }),
                drawn([this] { atOnce_.draw(pixels_.data(), VE_ZOOM_FIT); }),
                drawn([this] { keepState_.draw(pixels_.data(), kInitialZoom); }),
                drawn([this] { later_.draw(pixels_.data(), kInitialZoom); }),
                drawn([this] { once_.draw(pixels_.data(), VE_ZOOM_FIT); })};
    }

    bool picturesAreEqual() const {
        atOnce_.draw(pixels_.data(), kInitialZoom);
        const auto picture = read(direct_.target());
        return picture == read(target_) && picture == read(atOnce_.target()) &&
               picture == read(keepState_.target()) && picture == read(later_.target());
    }

private:
    std::vector<unsigned char> read(GLuint texture) const {
        return ReadTexture(texture, frame_.width, frame_.height);
    }

    template <class Draw>
    static Interleaved::Work drawn(Draw draw) {
        return Repeat(kDrawsPerRound, [draw] {
            draw();
            glFinish();
        });
    }

    OffscreenContext context_;
    FrameCase frame_;
    std::vector<unsigned char> pixels_;
    DirectRenderer direct_;
    GuardedFrames atOnce_;
    GuardedFrames keepState_;
    GuardedFrames later_;
    GuardedFrames once_;
    GLuint target_ = 0;
    void* seven_ = nullptr;
};

void GuardedFrameTimes(benchmark::State& state) {
    enum : size_t { kDirect, kSeven, kAtOnce, kCopied, kKeepState, kLater, kOnce };
    const FrameCase frame = {static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                             state.range(2) == 4, false, 0};
    GuardedContest contest(frame);
    const Interleaved times = RunContest(state, contest.works(), kWarmUpRounds);
    state.SetLabel(LabelOf(frame));
    state.counters["direct ms"] = times.medianMilliseconds(kDirect) / kDrawsPerRound;
    state.counters["ours ms"] = times.medianMilliseconds(kAtOnce) / kDrawsPerRound;
    state.counters["ours/direct"] = times.medianRatio(kAtOnce, kDirect);
    state.counters["ours/direct CPU"] = times.medianProcessorRatio(kAtOnce, kDirect);
    state.counters["ours/seven"] = times.medianRatio(kAtOnce, kSeven);
    state.counters["copied/direct"] = times.medianRatio(kCopied, kDirect);
    state.counters["uploaded/direct"] = times.medianRatio(kOnce, kDirect);
    state.counters["later/ours"] = times.medianRatio(kLater, kAtOnce);
    state.counters["keepState/ours"] = times.medianRatio(kKeepState, kAtOnce);
    if (!contest.picturesAreEqual()) {
        throw std::runtime_error("the renderers do not draw the same picture");
    }
}

// The smallest shows the calls alone.
BENCHMARK(GuardedFrameTimes)
    ->ArgNames({"width", "height", "bytes"})
    ->Args({16, 16, 4})
    ->ArgsProduct({{640}, {480}, {3, 4}})
    ->ArgsProduct({{1280}, {720}, {3, 4}})
    ->ArgsProduct({{1920}, {1080}, {3, 4}})
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
