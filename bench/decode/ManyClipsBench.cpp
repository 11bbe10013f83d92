// Several renderers of compressed video beside as many bare paths.

#include <algorithm>
#include <vector>

#include "Contest.h"
#include "Jvm.h"
#include "LeastPath.h"
#include "LibraryPath.h"
#include "Many.h"

namespace {

constexpr int kRounds = 9;
constexpr size_t kUnits = 50;
constexpr int kPicturesPerRound = 10;

/// One path of each kind.
struct Paths {
    explicit Paths(const Clip& clip)
        : seven(clip, Jvm(), WayIn::kSevenFunctions),
          guarded(clip, Jvm(), WayIn::kGuarded),
          bare(clip, ShaderKind::kEquivalent),
          lean(clip, ShaderKind::kLean) {}

    LibraryPath seven;
    LibraryPath guarded;
    LeastPath bare;
    LeastPath lean;
};

void ManyClips(benchmark::State& state) {
    enum : size_t { kSeven, kBare, kGuarded, kLean };
    const auto count = static_cast<size_t>(state.range(0));
    const bool ownContexts = state.range(1) != 0;
    static const Clip clip = GenerateClip(640, 480, kUnits);
    Jvm();  // On this thread.
    Many<Paths> many(count, ownContexts, [] { return std::make_unique<Paths>(clip); });
    const auto played = [&many](auto path) {
        return [&many, path] {
            many.run([path](const std::vector<Paths*>& each) {
                std::vector<ClipPath*> paths;
                paths.reserve(each.size());
                for (Paths* one : each) {
                    paths.push_back(&(one->*path));
                }
                ClipPath::PlayAll(paths, kPicturesPerRound);
            });
        };
    };
    const Interleaved times = RunContest(state, {played(&Paths::seven), played(&Paths::bare),
                                                 played(&Paths::guarded), played(&Paths::lean)});
    state.SetLabel(LabelOfMany(count, ownContexts));
    ReportMany(state, times, count * kPicturesPerRound, {"seven", "bare", "guarded", "lean"});
    ReportManyRatio(state, times, "seven/bare", kSeven, kBare);
    ReportManyRatio(state, times, "guarded/lean", kGuarded, kLean);
}

BENCHMARK(ManyClips)->Apply(AddManyCases)->Iterations(kRounds);

}  // namespace
