#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <vector>

#include "Interleaved.h"

/// \p work as often as it takes to be seen by the clock.
Interleaved::Work Repeat(int times, std::function<void()> work);

/// Runs the works in turn, once per iteration of \p state, which counts the time by hand.
/// \param warmUpRounds before that, whose times are not counted.
Interleaved RunContest(benchmark::State& state, const std::vector<Interleaved::Work>& works,
                       int warmUpRounds = 1);
