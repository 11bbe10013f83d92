#include "support/ComparePicture.h"

#include <cstdlib>

#include "support/PngFile.h"
#include "support/ToolError.h"

void ComparePicture(const Image& drawn, const std::string& path) {
    constexpr int kSameToTheEye = 12;
    const Image expected = ReadPng(path);
    if (drawn.size.width != expected.size.width || drawn.size.height != expected.size.height) {
        throw ToolError(path + " has another size");
    }
    size_t different = 0;
    for (size_t i = 0; i < drawn.pixels.size(); ++i) {
        different += std::abs(drawn.pixels[i] - expected.pixels[i]) > kSameToTheEye ? 1 : 0;
    }
    if (different * 500 > drawn.pixels.size()) {
        throw ToolError(path + " is another picture: " + std::to_string(different) + " of " +
                        std::to_string(drawn.pixels.size()) + " values differ");
    }
}
