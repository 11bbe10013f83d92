// The geometry builders: their CPU halves against plain loops that fill plain arrays with the same
// values, and the upload by itself.

#include <cstring>
#include <stdexcept>
#include <string>

#include "Contest.h"
#include "kernel/PlainMesh.h"
#include "kernel/geometry/private/Mesh.h"
#include "offscreen/OffscreenContext.h"

namespace {

using OVR::Mesh;

constexpr int kRounds = 300;
constexpr uint32_t kIndicesPerRun = 100000;

template <typename T, typename U>
bool SameBytes(const OVR::Array<T>& array, const U* plain) {
    return std::memcmp(array.Data, plain, array.Size * sizeof(T)) == 0;
}

void CheckSame(const Mesh& mesh, const PlainMesh& plain) {
    const bool same = SameBytes(mesh.attribs.position, plain.position.get()) &&
                      SameBytes(mesh.attribs.texCoord, plain.texCoord.get()) &&
                      SameBytes(mesh.attribs.vertexColor, plain.color.get()) &&
                      SameBytes(mesh.indices, plain.indices.get());
    if (!same) {
        throw std::runtime_error("the plain loop does not make the builder's mesh");
    }
}

template <typename Make, typename MakePlain>
void Builder(benchmark::State& state, const char* label, Make make, MakePlain makePlain) {
    state.SetLabel(label);
    const OffscreenContext context;
    GLES3::LoadGLFunctions();
    const Mesh mesh = make();
    CheckSame(mesh, makePlain());
    const auto repeats = static_cast<int>(kIndicesPerRun / mesh.indices.Size);

    const Interleaved times = RunContest(
        state,
        {Repeat(repeats, [make] { benchmark::DoNotOptimize(make().indices.Data); }),
         Repeat(repeats, [makePlain] { benchmark::DoNotOptimize(makePlain().indices.get()); }),
         Repeat(repeats, [&mesh] { Upload(mesh).Free(); })});
    state.counters["build us"] = 1000 * times.medianMilliseconds(0) / repeats;
    state.counters["loop us"] = 1000 * times.medianMilliseconds(1) / repeats;
    state.counters["upload us"] = 1000 * times.medianMilliseconds(2) / repeats;
    state.counters["build/loop"] = times.medianRatio(0, 1);
}

#define BUILDER(id, label, make, makePlain)                                \
    BENCHMARK_CAPTURE(                                                     \
        Builder, id, label, [] { return make; }, [] { return makePlain; }) \
        ->Iterations(kRounds)                                              \
        ->UseManualTime()                                                  \
        ->Unit(benchmark::kMicrosecond)

BUILDER(quad, "quad, 64 x 64", OVR::MakeTesselatedQuad(64, 64, false), PlainQuad(64, 64));
BUILDER(globe, "globe", OVR::MakeGlobe(1, 1, 1), PlainGlobe(1, 1, 1));
BUILDER(dome, "dome", OVR::MakeDome(1, 1, 1), PlainDome(1, 1, 1));
BUILDER(cylinder, "cylinder, 64 x 64", OVR::MakeTesselatedCylinder(1, 1, 64, 64, 1, 1),
        PlainCylinder(1, 1, 64, 64, 1, 1));
BUILDER(patch, "sphere patch", OVR::MakeSpherePatch(1), PlainPatch(1));
BUILDER(vignette, "vignette", OVR::MakeVignette(0.5F, 0.5F), PlainVignette(0.5F, 0.5F));
BUILDER(cube, "unit cube", OVR::MakeUnitCubeLines(), PlainCube());
BUILDER(calibration, "calibration, 10 lines", OVR::MakeCalibrationLines(10, true),
        PlainCalibration(10, true));

}  // namespace
