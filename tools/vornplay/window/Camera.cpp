#include "window/Camera.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kHalfFieldOfView = 23.5 * 3.14159265358979323846 / 180.0;
constexpr double kFarthestDistance = 20.0;
constexpr double kNearestDistance = 0.2;
constexpr double kZoomStep = 1.1;

/// From the picture to the camera; negative behind the picture.
double Distance(const View& view) {
    return 3.0 - view.zoom / 2.0;
}

/// The picture's width relative to the frame's; negative from behind, since left is right there.
double ScaleAcross(const View& view) {
    return 1.0 / (std::tan(kHalfFieldOfView) * Distance(view));
}

/// From -1 on the left to 1 on the right.
double InFrame(double place, int length) {
    return 2.0 * place / length - 1.0;
}

}  // namespace

Point PointSeenAt(const View& view, const Point& place, Size output) {
    const double across = ScaleAcross(view);
    return {view.x + InFrame(place.x, output.width) / across,
            InFrame(place.y, output.height) / std::abs(across)};
}

std::pair<int, int> StickerAt(const View& view, const Point& place, Size output) {
    // A sticker's center is this far above its position, in units of half the height.
    constexpr double kOffset = 0.3;
    const Point seen = PointSeenAt(view, place, output);
    const int halfWidth = output.width / 2;
    const int halfHeight = output.height / 2;
    const long x = std::lround(halfWidth + seen.x * halfWidth);
    const long y = std::lround(halfHeight + (seen.y + kOffset) * halfHeight);
    // This pair hides the sticker.
    const bool hidden = x == -1 && y == -1;
    return {static_cast<int>(x), hidden ? 0 : static_cast<int>(y)};
}

View Dragged(const View& view, double pixels, Size output) {
    View moved = view;
    moved.x -= static_cast<float>(2.0 * pixels / output.width / ScaleAcross(view));
    return moved;
}

View Zoomed(const View& view, double steps, double x, Size output) {
    const double nearer = std::abs(Distance(view)) / std::pow(kZoomStep, steps);
    const double distance =
        std::copysign(std::clamp(nearer, kNearestDistance, kFarthestDistance), Distance(view));
    View zoomed = view;
    zoomed.zoom = static_cast<float>(2.0 * (3.0 - distance));
    const Point place = {x, 0.0};
    zoomed.x += static_cast<float>(PointSeenAt(view, place, output).x -
                                   PointSeenAt(zoomed, place, output).x);
    return zoomed;
}
