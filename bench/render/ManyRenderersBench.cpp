// Several renderers of raw frames beside as many of bare GL: the seven functions beside the same
// uploads and shader, the guarded renderer beside the least code that draws at once.

#include <array>
#include <vector>

#include "BareRenderer.h"
#include "Contest.h"
#include "DirectRenderer.h"
#include "GuardedFrames.h"
#include "Many.h"
#include "render/VERenderer.h"

namespace {

constexpr int kWarmUpRounds = 2;
constexpr int kRounds = 31;
constexpr int kPicturesPerRound = 4;
constexpr float kInitialZoom = 2;
constexpr FrameCase kFrame = {640, 480, true, false, 0};

/// One renderer of each kind.
class RawRenderers {
public:
    RawRenderers() {
        VERendererMode mode = {};
        mode.modeType = VE_MODE_RGBA;
        mode.textureWidth = kFrame.width;
        mode.textureHeight = kFrame.height;
        glGenTextures(1, &target_);
        VECreateRendererHandle(&seven_, static_cast<int>(target_), &mode, nullptr);
    }
    ~RawRenderers() { VEDestroyRenderer(seven_); }
    RawRenderers(const RawRenderers&) = delete;
    RawRenderers& operator=(const RawRenderers&) = delete;

    void drawSeven() { VEUpdateRenderer(seven_, pixels_.data(), 0, true, nullptr); }
    void drawBare() { bare_.draw(pixels_.data(), nullptr, {}); }
    void drawGuarded() { guarded_.draw(pixels_.data(), kInitialZoom); }
    void drawDirect() { direct_.draw(pixels_.data()); }

private:
    std::vector<unsigned char> pixels_ = std::vector<unsigned char>(kFrame.bytes(), 90);
    BareRenderer bare_{kFrame, ShaderKind::kEquivalent, 0};
    GuardedFrames guarded_{kFrame};
    DirectRenderer direct_{kFrame, kInitialScale};
    GLuint target_ = 0;
    void* seven_ = nullptr;
};

void ManyRenderers(benchmark::State& state) {
    enum : size_t { kSeven, kBare, kGuarded, kDirect };
    const auto count = static_cast<size_t>(state.range(0));
    const bool ownContexts = state.range(1) != 0;
    Many<RawRenderers> many(count, ownContexts, [] { return std::make_unique<RawRenderers>(); });
    const auto drawn = [&many](void (RawRenderers::*draw)()) {
        return Repeat(kPicturesPerRound, [&many, draw] {
            many.run([draw](const auto& renderers) {
                for (RawRenderers* renderer : renderers) {
                    (renderer->*draw)();
                }
                glFinish();
            });
        });
    };
    const Interleaved times =
        RunContest(state,
                   {drawn(&RawRenderers::drawSeven), drawn(&RawRenderers::drawBare),
                    drawn(&RawRenderers::drawGuarded), drawn(&RawRenderers::drawDirect)},
                   kWarmUpRounds);
    state.SetLabel(LabelOfMany(count, ownContexts));
    ReportMany(state, times, count * kPicturesPerRound, {"seven", "bare", "guarded", "direct"});
    ReportManyRatio(state, times, "seven/bare", kSeven, kBare);
    ReportManyRatio(state, times, "guarded/direct", kGuarded, kDirect);
}

BENCHMARK(ManyRenderers)->Apply(AddManyCases)->Iterations(kRounds);

}  // namespace
