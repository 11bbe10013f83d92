#pragma once

/// \file
/// Scene.h for compressed video: starts the JVM, and reads a clip. For examples only.

#include <linux_platform/Host.h>

#include <iterator>

#include "Scene.h"

namespace example {

/// Reads H.264 of 25 frames a second without reordering, in which a delimiter begins each unit.
inline std::vector<Unit> ReadUnits(const char* path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const std::string delimiter("\0\0\0\1\x09", 5);
    std::vector<Unit> units;
    for (size_t begin = bytes.find(delimiter); begin != std::string::npos;) {
        const size_t end = bytes.find(delimiter, begin + 1);
        const std::string unit = bytes.substr(begin, end - begin);
        units.push_back({{unit.begin(), unit.end()}, static_cast<int64_t>(units.size()) * 40'000});
        begin = end;
    }
    return units;
}

}  // namespace example

/// Runs a program: PROGRAM CLIP.h264 [FRAME.pam [STICKER.pam [PICTURE.ppm]]]. The pictures of the
/// clip have the size of the frame, which is 384x288 if it is not given.
inline int DrawClip(void (*draw)(const Scene&), int /*argc*/, char** argv) {
    char error[256] = "no clip is named";
    Scene scene;
    scene.clip = argv[1] != nullptr ? example::ReadUnits(argv[1]) : std::vector<Unit>();
    scene.javaVM = scene.clip.empty() ? nullptr : HostJava_start(nullptr, error, sizeof(error));
    if (scene.javaVM == nullptr) {
        std::cerr << error << '\n';
        return 1;
    }
    return example::Run(draw, scene, argv + 2);
}
