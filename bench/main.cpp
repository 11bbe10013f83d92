#include <GLES3/gl3.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>

#include "Heap.h"
#include "offscreen/OffscreenContext.h"

namespace {

/// Whether \p flag was given; removes it.
bool TakeFlag(int& argc, char** argv, const char* flag) {
    char** end = std::remove_if(
        argv + 1, argv + argc, [flag](char* argument) { return std::strcmp(argument, flag) == 0; });
    const bool found = end != argv + argc;
    argc = static_cast<int>(end - argv);
    return found;
}

std::string NameOfGl() {
    const OffscreenContext context;
    const auto get = [](GLenum name) {
        return std::string(reinterpret_cast<const char*>(glGetString(name)));
    };
    return get(GL_RENDERER) + ", " + get(GL_VERSION);
}

}  // namespace

int main(int argc, char** argv) {
    if (!TakeFlag(argc, argv, "--no-mallopt")) {
        KeepLargeBlocks();
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    try {
        benchmark::AddCustomContext("GL", NameOfGl());
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}
