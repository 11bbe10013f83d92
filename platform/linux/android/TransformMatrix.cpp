#include "TransformMatrix.h"

namespace {

struct Place {
    double s;
    double t;
};

Place Transformed(Place place, int transform) {
    if ((transform & ANATIVEWINDOW_TRANSFORM_ROTATE_90) != 0) {
        place = {1 - place.t, place.s};
    }
    if ((transform & ANATIVEWINDOW_TRANSFORM_MIRROR_VERTICAL) != 0) {
        place.t = 1 - place.t;
    }
    if ((transform & ANATIVEWINDOW_TRANSFORM_MIRROR_HORIZONTAL) != 0) {
        place.s = 1 - place.s;
    }
    return place;
}

/// Maps 0 … 1 to \p first … \p last of \p size texels. Linear filtering must not reach the texels
/// outside.
double Cropped(double place, int first, int last, int size) {
    if (last - first >= size) {
        return place;
    }
    constexpr double kShrink = 0.5;
    return (first + kShrink + place * (last - first - 2 * kShrink)) / size;
}

Place InTexture(Place shown, const WindowFrame& frame) {
    const bool whole = frame.crop.right <= frame.crop.left || frame.crop.bottom <= frame.crop.top;
    const ARect crop = whole ? ARect{0, 0, frame.width, frame.height} : frame.crop;
    const Place place = Transformed(shown, frame.transform);
    return {
        Cropped(place.s, crop.left, crop.right, frame.width),
        1 - Cropped(place.t, frame.height - crop.bottom, frame.height - crop.top, frame.height)};
}

}  // namespace

Matrix TransformOf(const WindowFrame& frame) {
    const Place origin = InTexture({0, 0}, frame);
    const Place right = InTexture({1, 0}, frame);
    const Place up = InTexture({0, 1}, frame);
    Matrix matrix = kIdentity;
    const auto setColumn = [&matrix](size_t column, double s, double t) {
        matrix[4 * column] = static_cast<float>(s);
        matrix[4 * column + 1] = static_cast<float>(t);
    };
    setColumn(0, right.s - origin.s, right.t - origin.t);
    setColumn(1, up.s - origin.s, up.t - origin.t);
    setColumn(3, origin.s, origin.t);
    return matrix;
}
