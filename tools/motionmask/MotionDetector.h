#pragma once

#include <cstdint>
#include <vector>

#include "support/Image.h"

/// Marks the pixels of a frame that stand out from a background.
class MotionDetector {
public:
    /// \param background RGB, 3 bytes a pixel
    MotionDetector(Size size, std::vector<uint8_t> background);

    /// 255 for each pixel of \p rgb where something moves, else 0; valid until the next call.
    const std::vector<uint8_t>& Detect(const uint8_t* rgb);

private:
    void MarkDifferences(const uint8_t* rgb);
    void Smooth(int radius, int threshold);

    Size size_;
    std::vector<uint8_t> background_;
    std::vector<uint8_t> mask_;
    std::vector<uint32_t> sums_;
};
