#include "OptionValues.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdlib>
#include <regex>
#include <vector>

namespace {

/// The numbers of a list such as "1,2.5,-3", of which there must be \p count.
std::vector<double> ParseNumbers(const std::string& text, size_t count) {
    std::vector<double> numbers;
    const char* next = text.c_str();
    for (bool more = true; more; ++next) {
        char* end = nullptr;
        numbers.push_back(std::strtod(next, &end));
        if (end == next || !std::isfinite(numbers.back()) || (*end != ',' && *end != '\0')) {
            throw CLI::ValidationError(text + " is no list of numbers");
        }
        more = *end == ',';
        next = end;
    }
    if (numbers.size() != count) {
        throw CLI::ValidationError(text + " has not " + std::to_string(count) + " numbers");
    }
    return numbers;
}

/// The same for whole numbers from \p low to \p high.
std::vector<double> ParseIntegers(const std::string& text, size_t count, int low, int high) {
    std::vector<double> numbers = ParseNumbers(text, count);
    for (const double number : numbers) {
        if (number != std::floor(number) || number < low || number > high) {
            throw CLI::ValidationError(text + " is not of whole numbers in range");
        }
    }
    return numbers;
}

}  // namespace

View FitView() {
    // The camera stands at 3 - zoom / 2, and sees the picture's half height of 1 under half of the
    // field of view.
    constexpr double kHalfFieldOfView = 23.5 * 3.14159265358979323846 / 180.0;
    const double distance = 1.0 / std::tan(kHalfFieldOfView);
    View view;
    view.zoom = static_cast<float>(2.0 * (3.0 - distance));
    return view;
}

View Between(const View& from, const View& to, double progress) {
    const auto between = [t = static_cast<float>(progress)](float a, float b) {
        return a * (1.0F - t) + b * t;
    };
    return {between(from.x, to.x), between(from.y, to.y), between(from.zoom, to.zoom),
            between(from.w, to.w)};
}

View ParseView(const std::string& text) {
    const std::vector<double> numbers = ParseNumbers(text, 4);
    return {static_cast<float>(numbers[0]), static_cast<float>(numbers[1]),
            static_cast<float>(numbers[2]), static_cast<float>(numbers[3])};
}

Rgba ParseColour(const std::string& text) {
    const std::vector<double> numbers = ParseIntegers(text, 4, 0, 255);
    Rgba colour{};
    for (size_t i = 0; i < colour.size(); ++i) {
        colour[i] = static_cast<uint8_t>(numbers[i]);
    }
    return colour;
}

std::pair<int, int> ParsePosition(const std::string& text) {
    constexpr int kFarthest = 1 << 20;
    const std::vector<double> numbers = ParseIntegers(text, 2, -kFarthest, kFarthest);
    return {static_cast<int>(numbers[0]), static_cast<int>(numbers[1])};
}

Backdrop ParseBackdrop(const std::string& text) {
    static const std::regex kHexColour("#[0-9a-fA-F]{6}");
    if (text == "checker") {
        return {};
    }
    if (!std::regex_match(text, kHexColour)) {
        throw CLI::ValidationError(text + " is neither checker nor a colour #rrggbb");
    }
    const unsigned long rgb = std::stoul(text.substr(1), nullptr, 16);
    return Backdrop({static_cast<uint8_t>(rgb >> 16), static_cast<uint8_t>(rgb >> 8),
                     static_cast<uint8_t>(rgb)});
}
