// How many GL calls a frame makes, by kind, as a Markdown table.

#include <array>
#include <iostream>
#include <string>
#include <vector>

#include "render/GuardedFrames.h"
#include "support/GlRecorder.h"
#include "support/RendererHarness.h"
#include "support/Replaced.h"

namespace {

constexpr FrameCase kFrame = {64, 48, true, false, 0};
constexpr float kInitialZoom = 2;

struct Kind {
    const char* name;
    std::vector<const char*> prefixes;
};

/// The first kind with a prefix of the call counts it.
const std::array<Kind, 7>& Kinds() {
    static const std::array<Kind, 7> kinds = {
        {{"error checks", {"glGetError"}},
         {"questions for state", {"glGet", "glIs"}},
         {"bindings", {"glBind", "glActiveTexture", "glUseProgram"}},
         {"uniforms", {"glUniform"}},
         {"pixels and vertices", {"glTex", "glBuffer", "glMap", "glUnmap"}},
         {"clears, copies and draws", {"glClear", "glInvalidate", "glBlitF", "glDraw"}},
         {"other state", {"gl"}}}};
    return kinds;
}

using Counts = std::array<int, 7>;

size_t KindOf(const std::string& call) {
    for (size_t kind = 0; kind < Kinds().size(); ++kind) {
        for (const char* prefix : Kinds().at(kind).prefixes) {
            if (call.rfind(prefix, 0) == 0) {
                return kind;
            }
        }
    }
    return Kinds().size() - 1;
}

int errorChecks = 0;  ///< The recorder leaves them out.

template <typename Draw>
Counts CountFrame(const Draw& draw) {
    draw();
    draw();
    const Replaced check(GLES3::glGetError, []() -> GLenum {
        ++errorChecks;
        return glGetError();
    });
    const GlRecorder recorder;
    errorChecks = 0;
    draw();
    Counts counts = {errorChecks};
    for (const std::string& call : GlRecorder::take()) {
        ++counts.at(KindOf(call));
    }
    return counts;
}

Counts CountGuarded(const VERendererOptions& options, float zoom) {
    const GuardedFrames renderer(kFrame, options);
    const std::vector<unsigned char> pixels(kFrame.bytes());
    return CountFrame([&] { renderer.draw(pixels.data(), zoom); });
}

Counts CountSevenFunctions() {
    const RendererHarness renderer(
        {VE_OUTPUT_PICTURE, VE_MODE_RGBA, kFrame.width, kFrame.height, 0, 0, 0});
    std::vector<unsigned char> pixels(kFrame.bytes());
    return CountFrame([&] { VEUpdateRenderer(renderer.handle, pixels.data(), 0, true, nullptr); });
}

void PrintRow(const std::string& name, const std::vector<int>& cells) {
    std::cout << "| " << name << " |";
    for (const int cell : cells) {
        std::cout << ' ' << cell << " |";
    }
    std::cout << '\n';
}

}  // namespace

int main() {
    const TestContext context;
    const VERendererOptions usual = VEMakeRendererOptions();
    const std::vector<Counts> frames = {
        CountSevenFunctions(),
        CountGuarded(usual, kInitialZoom),
        CountGuarded(DrawingLater(), kInitialZoom),
        CountGuarded(usual, VE_ZOOM_FIT),
        CountGuarded(KeepingState(), VE_ZOOM_FIT),
        CountGuarded(DrawingOnce(), VE_ZOOM_FIT),
    };
    std::cout << "| | seven | guarded | drawLater | copied | copied, keepState | uploaded |\n"
                 "|---|--:|--:|--:|--:|--:|--:|\n";
    std::vector<int> sums(frames.size());
    for (size_t kind = 0; kind < Kinds().size(); ++kind) {
        std::vector<int> cells;
        for (size_t i = 0; i < frames.size(); ++i) {
            cells.push_back(frames[i].at(kind));
            sums[i] += cells.back();
        }
        PrintRow(Kinds().at(kind).name, cells);
    }
    PrintRow("all", sums);
    return 0;
}
