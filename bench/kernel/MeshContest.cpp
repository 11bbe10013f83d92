#include "kernel/MeshContest.h"

#include <stdexcept>
#include <tuple>
#include <vector>

#include "Contest.h"
#include "offscreen/OffscreenContext.h"

namespace {

constexpr int kIndicesPerRun = 100000;

/// The GL functions that GlGeometry::Create calls.
auto Functions() {
    return std::tie(GLES3::glGenBuffers, GLES3::glGenVertexArrays, GLES3::glBindVertexArray,
                    GLES3::glBindBuffer, GLES3::glBufferData, GLES3::glEnableVertexAttribArray,
                    GLES3::glDisableVertexAttribArray, GLES3::glVertexAttribPointer);
}

template <typename... T>
std::tuple<T...> Values(const std::tuple<T&...>& references) {
    return references;
}

/// While it lives, these functions do nothing.
class SilentGl {
public:
    SilentGl() {
        Functions() = std::make_tuple(
            [](GLsizei, GLuint*) {}, [](GLsizei, GLuint*) {}, [](GLuint) {}, [](GLenum, GLuint) {},
            [](GLenum, GLsizeiptr, const void* data, GLenum) { benchmark::DoNotOptimize(data); },
            [](GLuint) {}, [](GLuint) {},
            [](GLuint, GLint, GLenum, GLboolean, GLsizei, const void*) {});
    }
    ~SilentGl() { Functions() = saved_; }
    SilentGl(const SilentGl&) = delete;
    SilentGl& operator=(const SilentGl&) = delete;

private:
    decltype(Values(Functions())) saved_ = Values(Functions());
};

/// As Repeat, on a GL that does nothing.
Interleaved::Work RepeatSilently(int times, std::function<void()> work) {
    return [repeat = Repeat(times, std::move(work))] {
        const SilentGl silent;
        repeat();
    };
}

std::vector<char> BytesOf(GLuint buffer) {
    GLint size = 0;
    GLES3::glBindBuffer(GL_COPY_READ_BUFFER, buffer);
    GLES3::glGetBufferParameteriv(GL_COPY_READ_BUFFER, GL_BUFFER_SIZE, &size);
    const auto* data = static_cast<const char*>(
        GLES3::glMapBufferRange(GL_COPY_READ_BUFFER, 0, size, GL_MAP_READ_BIT));
    std::vector<char> bytes(data, data + size);
    GLES3::glUnmapBuffer(GL_COPY_READ_BUFFER);
    return bytes;
}

void CheckSame(OVR::GlGeometry built, OVR::GlGeometry plain) {
    if (BytesOf(built.vertexBuffer) != BytesOf(plain.vertexBuffer) ||
        BytesOf(built.indexBuffer) != BytesOf(plain.indexBuffer)) {
        throw std::runtime_error("the plain loop does not make the builder's mesh");
    }
    built.Free();
    plain.Free();
}

}  // namespace

void MeshContest(benchmark::State& state, const char* label,
                 const std::function<OVR::GlGeometry()>& build,
                 const std::function<PlainMesh()>& plain) {
    state.SetLabel(label);
    const OffscreenContext context;
    GLES3::LoadGLFunctions();
    const PlainMesh mesh = plain();
    CheckSame(build(), mesh.Upload());
    const int repeats = kIndicesPerRun / static_cast<int>(mesh.indices.Size);

    const Interleaved times =
        RunContest(state, {RepeatSilently(repeats, [&build] { build(); }),
                           RepeatSilently(repeats, [&plain] { plain().Upload(); }),
                           Repeat(repeats, [&mesh] { mesh.Upload().Free(); })});
    state.counters["build us"] = 1000 * times.medianMilliseconds(0) / repeats;
    state.counters["loop us"] = 1000 * times.medianMilliseconds(1) / repeats;
    state.counters["upload us"] = 1000 * times.medianMilliseconds(2) / repeats;
    state.counters["build/loop"] = times.medianRatio(0, 1);
}
