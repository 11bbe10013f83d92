#include "window/Layout.h"

#include <algorithm>
#include <cmath>

namespace {

int Scaled(int length, double scale) {
    return std::max(1, static_cast<int>(std::lround(length * scale)));
}

}  // namespace

Area Layout::PictureArea() const {
    const double scale = std::min(static_cast<double>(drawable.width) / picture.width,
                                  static_cast<double>(drawable.height) / picture.height);
    const int width = Scaled(picture.width, scale);
    const int height = Scaled(picture.height, scale);
    return {(drawable.width - width) / 2, (drawable.height - height) / 2, width, height};
}

std::optional<Point> Layout::PictureAt(int pointerX, int pointerY) const {
    constexpr double kCenter = 0.5;
    const Area area = PictureArea();
    const double x = (pointerX + kCenter) * drawable.width / window.width - area.left;
    const double y = (pointerY + kCenter) * drawable.height / window.height - area.top;
    if (x < 0.0 || y < 0.0 || x >= area.width || y >= area.height) {
        return std::nullopt;
    }
    return Point{x * picture.width / area.width, y * picture.height / area.height};
}

double Layout::PictureDistance(double pointerDistance) const {
    return pointerDistance * Density() * picture.width / PictureArea().width;
}

double Layout::Density() const {
    return static_cast<double>(drawable.width) / window.width;
}
