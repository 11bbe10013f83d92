#include "FramePath.h"

#include <array>
#include <cstdio>

std::string FramePath::Summary(int64_t drawn) const {
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(),
                  "%lld frames in, %lld out, %lld failed, %.2f ms a frame",
                  static_cast<long long>(drawn), static_cast<long long>(drawn),
                  static_cast<long long>(Lost() + Damaged()), Target().MillisecondsPerDraw());
    return text.data();
}
