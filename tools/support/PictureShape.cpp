#include "support/PictureShape.h"

#include <cmath>

Size PictureShape::Square(Size stored) const {
    constexpr double kMost = 16.0;  // More is a mistake of the file.
    const double aspect = av_q2d(pixelAspect);
    if (!(aspect > 1.0 / kMost && aspect < kMost)) {
        return stored;
    }
    if (aspect > 1.0) {
        return {static_cast<int>(std::lround(stored.width * aspect)), stored.height};
    }
    return {stored.width, static_cast<int>(std::lround(stored.height / aspect))};
}

Size PictureShape::Turned(Size size) const {
    return rotation % 180 == 0 ? size : Size{size.height, size.width};
}

void PictureShape::TurnBy(const int32_t* matrix) {
    constexpr int kQuarter = 90;
    constexpr double kPi = 3.14159265358979323846;
    // x' = a x + c y, y' = b x + d y
    const auto a = static_cast<double>(matrix[0]);
    const auto b = static_cast<double>(matrix[1]);
    const auto c = static_cast<double>(matrix[3]);
    const auto d = static_cast<double>(matrix[4]);
    flip = a * d - b * c < 0.0;
    const long quarters = std::lround(std::atan2(b, a) / (kPi / 2));
    rotation = static_cast<int>((quarters + 4) % 4) * kQuarter;
}
