#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <utility>
#include <vector>

#include "Interleaved.h"

/// \p work as often as it takes to be seen by the clock.
inline Interleaved::Work Repeat(int times, const std::function<void()>& work) {
    return [times, work] {
        for (int i = 0; i < times; ++i) {
            work();
        }
    };
}

/// Runs the works in turn, once per iteration of \p state.
inline Interleaved RunContest(benchmark::State& state, std::vector<Interleaved::Work> works) {
    Interleaved warmUp(works);
    warmUp.runRound();
    Interleaved times(std::move(works));
    for ([[maybe_unused]] auto round : state) {
        state.SetIterationTime(times.runRound());
    }
    return times;
}
