#pragma once

#include <benchmark/benchmark.h>

#include <functional>

#include "kernel/PlainMesh.h"

/// A builder against the plain loop for the same mesh, on a GL that does nothing; and the upload by
/// itself. Throws if the two meshes differ in any byte.
void MeshContest(benchmark::State& state, const char* label,
                 const std::function<OVR::GlGeometry()>& build,
                 const std::function<PlainMesh()>& plain);

#define MESH(id, label, build, plain)                                       \
    BENCHMARK_CAPTURE(                                                      \
        MeshContest, id, label, [] { return build; }, [] { return plain; }) \
        ->Iterations(300)                                                   \
        ->UseManualTime()                                                   \
        ->Unit(benchmark::kMicrosecond)
