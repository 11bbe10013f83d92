#include "OptionValues.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/ToolError.h"

namespace {

/// The numbers of a list such as "1,2.5,-3".
template <size_t count>
std::array<double, count> ParseNumbers(const std::string& text, double low, double high) {
    std::array<double, count> numbers{};
    const char* next = text.c_str();
    for (size_t i = 0; i < count; ++i) {
        char* end = nullptr;
        numbers[i] = std::strtod(next, &end);
        const char separator = i + 1 < count ? ',' : '\0';
        // The comparisons fail for what is not a number at all, too.
        if (end == next || *end != separator || !(numbers[i] >= low && numbers[i] <= high)) {
            throw ToolError(text + " is no list of " + std::to_string(count) + " numbers in range");
        }
        next = end + 1;
    }
    return numbers;
}

}  // namespace

VEView ParseView(const std::string& text) {
    constexpr double kFarthest = 1e6;
    constexpr size_t kX = 0;
    constexpr size_t kY = 1;
    constexpr size_t kZoom = 2;
    const std::array<double, 4> numbers = ParseNumbers<4>(text, -kFarthest, kFarthest);
    if (numbers[kZoom] > kNearestZoom) {
        throw ToolError(text + " is no view: from a zoom of 5.8 on nothing shows");
    }
    return {static_cast<float>(numbers[kX]), static_cast<float>(numbers[kY]),
            static_cast<float>(numbers[kZoom])};
}

Rgba ParseColor(const std::string& text) {
    const auto [red, green, blue, alpha] = ParseNumbers<4>(text, 0.0, 255.0);
    return {static_cast<uint8_t>(red), static_cast<uint8_t>(green), static_cast<uint8_t>(blue),
            static_cast<uint8_t>(alpha)};
}

std::pair<int, int> ParsePosition(const std::string& text) {
    constexpr double kFarthest = 1e6;
    const auto [x, y] = ParseNumbers<2>(text, -kFarthest, kFarthest);
    return {static_cast<int>(x), static_cast<int>(y)};
}

PartNumber ParsePart(const std::string& text) {
    constexpr int kMost = 10000;
    PartNumber part;
    int used = 0;
    // NOLINTNEXTLINE(cert-err34-c): %n and the range show what sscanf would let pass.
    const int fields = std::sscanf(text.c_str(), "%5d/%5d%n", &part.number, &part.count, &used);
    if (fields != 2 || static_cast<size_t>(used) != text.size() || part.count > kMost ||
        part.number < 1 || part.number > part.count) {
        throw ToolError(text + " is no part K/N, from 1/N to N/N, of " + std::to_string(kMost) +
                        " at most");
    }
    return part;
}

Backdrop ParseBackdrop(const std::string& text) {
    if (text == "checker") {
        return {};
    }
    constexpr size_t kLength = 7;
    const bool hex = text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
    if (text.size() != kLength || text[0] != '#' || !hex) {
        throw ToolError(text + " is neither checker nor a color #rrggbb");
    }
    const unsigned long rgb = std::stoul(text.substr(1), nullptr, 16);
    return Backdrop({static_cast<uint8_t>(rgb >> 16), static_cast<uint8_t>(rgb >> 8),
                     static_cast<uint8_t>(rgb)});
}
