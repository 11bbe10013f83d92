#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <vector>

#include "Interleaved.h"

/// Repeats \p work until its time can be measured.
Interleaved::Work Repeat(int times, std::function<void()> work);

/// Runs the works in turn, once for each iteration of \p state, and sets the time of the iteration.
/// \param warmUpRounds rounds before that whose times are not counted.
Interleaved RunContest(benchmark::State& state, const std::vector<Interleaved::Work>& works,
                       int warmUpRounds = 1);
