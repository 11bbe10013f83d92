#include "MotionDetector.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

constexpr int kDifference = 28;  ///< Of a channel, averaged over the neighborhood.
constexpr int kMajority = 127;   ///< Of 255, the share of marked pixels.
constexpr int kAnyNearby = 12;   ///< As above. Low, so that marked areas grow.
constexpr uint8_t kMarked = 255;

size_t Area(Size size) {
    return static_cast<size_t>(size.width) * static_cast<size_t>(size.height);
}

}  // namespace

MotionDetector::MotionDetector(Size size, std::vector<uint8_t> background)
    : size_(size),
      background_(std::move(background)),
      mask_(Area(size)),
      sums_(Area({size.width + 1, size.height + 1})) {}

const std::vector<uint8_t>& MotionDetector::Detect(const uint8_t* rgb) {
    const int unit = std::max(1, size_.height / 288);
    MarkDifferences(rgb);
    Smooth(unit, kDifference);
    Smooth(2 * unit, kMajority);
    Smooth(2 * unit, kAnyNearby);
    return mask_;
}

/// Sets each pixel to the largest difference of its three channels.
void MotionDetector::MarkDifferences(const uint8_t* rgb) {
    const uint8_t* still = background_.data();
    for (uint8_t& pixel : mask_) {
        int largest = 0;
        for (int channel = 0; channel < 3; ++channel) {
            largest = std::max(largest, std::abs(*rgb++ - *still++));
        }
        pixel = static_cast<uint8_t>(largest);
    }
}

/// Marks the pixels whose neighborhood has a mean above \p threshold. With a table of the sums of
/// all rectangles from the first pixel on, the radius does not matter for the time.
void MotionDetector::Smooth(int radius, int threshold) {
    const auto pitch = static_cast<size_t>(size_.width) + 1;
    for (size_t i = 0, row = 0; row < static_cast<size_t>(size_.height); ++row) {
        uint32_t sum = 0;
        for (size_t x = 1; x < pitch; ++x, ++i) {
            sum += mask_[i];
            sums_[(row + 1) * pitch + x] = sums_[row * pitch + x] + sum;
        }
    }
    for (int y = 0; y < size_.height; ++y) {
        const int top = std::max(0, y - radius);
        const int bottom = std::min(size_.height, y + radius + 1);
        const uint32_t* above = &sums_[static_cast<size_t>(top) * pitch];
        const uint32_t* below = &sums_[static_cast<size_t>(bottom) * pitch];
        for (int x = 0; x < size_.width; ++x) {
            const int left = std::max(0, x - radius);
            const int right = std::min(size_.width, x + radius + 1);
            const uint32_t sum = below[right] - below[left] - above[right] + above[left];
            const auto area = static_cast<uint32_t>((right - left) * (bottom - top));
            const bool marked = sum > area * static_cast<uint32_t>(threshold);
            mask_[static_cast<size_t>(y) * (pitch - 1) + static_cast<size_t>(x)] =
                marked ? kMarked : 0;
        }
    }
}
