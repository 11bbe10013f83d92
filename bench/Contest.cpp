#include "Contest.h"

#include <utility>

Interleaved::Work Repeat(int times, std::function<void()> work) {
    return [times, work = std::move(work)] {
        for (int i = 0; i < times; ++i) {
            work();
        }
    };
}

Interleaved RunContest(benchmark::State& state, const std::vector<Interleaved::Work>& works,
                       int warmUpRounds) {
    Interleaved warmUp(works);
    for (int i = 0; i < warmUpRounds; ++i) {
        warmUp.runRound();
    }
    Interleaved times(works);
    for ([[maybe_unused]] auto round : state) {
        state.SetIterationTime(times.runRound());
    }
    return times;
}
