// Shows pictures of a clip in a process that does nothing else: playclip PATH CLIP COUNT
// PATH: seven, guarded, bare, ahead; "bare+JVM" starts a JVM, too.

#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "AheadPath.h"
#include "Heap.h"
#include "Jvm.h"
#include "LeastPath.h"
#include "LibraryPath.h"
#include "offscreen/OffscreenContext.h"

namespace {

std::unique_ptr<ClipPath> MakePath(const std::string& name, const Clip& clip) {
    if (name == "seven") {
        return std::make_unique<LibraryPath>(clip, Jvm(), WayIn::kSevenFunctions);
    }
    if (name == "guarded") {
        return std::make_unique<LibraryPath>(clip, Jvm(), WayIn::kGuarded);
    }
    if (name == "ahead") {
        return std::make_unique<AheadPath>(clip, ShaderKind::kEquivalent);
    }
    if (name == "bare+JVM") {
        Jvm();
    }
    return std::make_unique<LeastPath>(clip, ShaderKind::kEquivalent);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "playclip PATH CLIP COUNT\n";
        return 1;
    }
    try {
        KeepLargeBlocks();
        const auto count = static_cast<size_t>(std::stoi(argv[3]));
        const OffscreenContext context;
        const Clip clip = LoadClip(argv[2], count);
        MakePath(argv[1], clip)->play(static_cast<int>(count));
    } catch (const std::exception& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}
