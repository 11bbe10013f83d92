#include "window/Camera.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kHalfFieldOfView = 23.5 * 3.14159265358979323846 / 180.0;
constexpr double kFarthestDistance = 20.0;
constexpr double kNearestDistance = 0.2;
constexpr double kZoomStep = 1.1;

/// From the picture to the camera.
double Distance(const VEView& view) {
    return 3.0 - view.zoom / 2.0;
}

/// The picture's size relative to the frame's.
double Scale(const VEView& view) {
    return 1.0 / (std::tan(kHalfFieldOfView) * Distance(view));
}

/// From -1 on the left to 1 on the right, or from the top to the bottom.
double InFrame(double place, int length) {
    return 2.0 * place / length - 1.0;
}

/// \p view, moved back so far that at least this part of the picture, or of the frame, is seen.
VEView Kept(VEView view) {
    constexpr double kSeen = 0.25;
    const double scale = Scale(view);
    const double seen = 2.0 * kSeen * std::min(1.0, scale);
    const auto most = static_cast<float>(1.0 + (1.0 - seen) / scale);
    view.x = std::clamp(view.x, -most, most);
    view.y = std::clamp(view.y, -most, most);
    return view;
}

}  // namespace

Point PointSeenAt(const VEView& view, const Point& place, Size output) {
    const double scale = Scale(view);
    return {view.x + InFrame(place.x, output.width) / scale,
            view.y + InFrame(place.y, output.height) / scale};
}

std::pair<int, int> StickerAt(const VEView& view, const Point& place, Size output) {
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

VEView Dragged(const VEView& view, const Point& pixels, Size output) {
    VEView moved = view;
    moved.x -= static_cast<float>(2.0 * pixels.x / output.width / Scale(view));
    moved.y -= static_cast<float>(2.0 * pixels.y / output.height / Scale(view));
    return Kept(moved);
}

VEView Zoomed(const VEView& view, double steps, const Point& place, Size output) {
    const double nearer = Distance(view) / std::pow(kZoomStep, steps);
    const double distance = std::clamp(nearer, kNearestDistance, kFarthestDistance);
    VEView zoomed = view;
    zoomed.zoom = static_cast<float>(2.0 * (3.0 - distance));
    const Point before = PointSeenAt(view, place, output);
    const Point after = PointSeenAt(zoomed, place, output);
    zoomed.x += static_cast<float>(before.x - after.x);
    zoomed.y += static_cast<float>(before.y - after.y);
    return Kept(zoomed);
}
