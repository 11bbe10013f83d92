#include "support/PictureModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace {

constexpr double kPi = 3.14159265358979323846;
#ifndef MODEL_TOLERANCE
#define MODEL_TOLERANCE 1e-3
#endif
constexpr double kTooClose = MODEL_TOLERANCE;  ///< Of a texel, and of the square's unit.
constexpr Rgba kKeyColor = {169, 210, 216, 0};

struct Point {
    double x;
    double y;
};

/// Colors of which a pixel has one: more than one where rounding decides.
using Colors = std::vector<Rgba>;

/// The texels of a row or column of \p size that may be nearest to \p place. On its ends, edges may
/// be clamped or wrapped.
std::set<int> NearestTexels(double place, int size) {
    std::set<int> texels;
    for (const double offset : {-kTooClose, kTooClose}) {
        const int texel = static_cast<int>(std::floor(place * size + offset));
        texels.insert({std::clamp(texel, 0, size - 1), (texel % size + size) % size});
    }
    return texels;
}

Colors Sample(const Image& image, double u, double v) {
    Colors colors;
    for (const int y : NearestTexels(v, image.size.height)) {
        for (const int x : NearestTexels(u, image.size.width)) {
            colors.push_back(image.Pixel(x, y));
        }
    }
    return colors;
}

void Append(Colors& colors, const Colors& more) {
    colors.insert(colors.end(), more.begin(), more.end());
}

/// The point of the picture's plane that is seen at the center of an output pixel.
Point Unproject(const Scene& scene, double ndcX, double ndcY) {
    const double scale = ViewScale(static_cast<double>(scene.zoom));
    return {static_cast<double>(scene.viewX) + ndcX / scale,
            static_cast<double>(scene.viewY) + ndcY / std::abs(scale)};
}

/// Where the point (u, v) of the output's square lies in the source.
Point InSource(const Scene& scene, double u, double v) {
    if (!scene.colorMirror) {
        u = 1 - u;
    }
    Point p = {u, v};
    switch (scene.rotation) {
        case 90: p = {v, 1 - u}; break;
        case 180: p = {1 - u, 1 - v}; break;
        case 270: p = {1 - v, u}; break;
        default: break;
    }
    if (const float* m = scene.sourceMatrix) {
        const double up = 1 - p.y;
        p = {m[0] * p.x + m[4] * up + m[12], m[1] * p.x + m[5] * up + m[13]};
    }
    return p;
}

Colors PicturePixel(const Scene& scene, const Point& p) {
    const double u = (p.x + 1) / 2;
    const double v = (p.y + 1) / 2;
    const Point place = InSource(scene, u, v);
    Colors colors = Sample(*scene.source, place.x, place.y);
    if (scene.mask == nullptr) {
        return colors;
    }
    Colors keyed;
    for (const Rgba& key : Sample(*scene.mask, u, v)) {
        const bool black = key[0] == 0 && key[1] == 0 && key[2] == 0;
        for (const Rgba& color : colors) {
            keyed.push_back(black ? kKeyColor : Rgba{color[0], color[1], color[2], key[3]});
        }
    }
    return keyed;
}

enum class Cover { Outside, Inside, Edge };

Cover Covers(const Point& p, double left, double right, double top, double bottom) {
    const double inside =
        std::min(std::min(p.x - left, right - p.x), std::min(p.y - top, bottom - p.y));
    if (std::abs(inside) < kTooClose) {
        return Cover::Edge;
    }
    return inside > 0 ? Cover::Inside : Cover::Outside;
}

/// Draws the stickers over \p colors, in order.
void OverlayStickers(const Scene& scene, const Point& p, Size size, Colors& colors) {
    const int halfWidth = size.width / 2;
    const int halfHeight = size.height / 2;
    for (const auto& [x, y] : scene.stickers) {
        if (x == -1 && y == -1) {
            continue;
        }
        const double left = static_cast<double>(x - halfWidth) / halfWidth - 0.05;
        const double top = static_cast<double>(y - halfHeight) / halfHeight - 0.4;
        const Cover cover = Covers(p, left, left + 0.1, top, top + 0.2);
        if (cover == Cover::Outside) {
            continue;
        }
        if (cover == Cover::Inside) {
            colors.clear();
        }
        const double u = (p.x - left) / 0.1;
        const double v = 1 - (p.y - top) / 0.2;  // First row nearest to the anchor.
        Append(colors, Sample(*scene.sticker, scene.colorMirror ? u : 1 - u, v));
    }
}

/// What may be seen at an output pixel.
Colors Predict(const Scene& scene, int x, int y, Size size) {
    const Point p =
        Unproject(scene, (2.0 * x + 1) / size.width - 1, (2.0 * y + 1) / size.height - 1);
    const Cover cover = Covers(p, -1, 1, -1, 1);
    Colors colors;
    if (cover != Cover::Inside) {
        colors.push_back(scene.clear);
    }
    if (cover != Cover::Outside) {
        Append(colors, PicturePixel(scene, p));
    }
    if (scene.sticker != nullptr) {
        OverlayStickers(scene, p, size, colors);
    }
    return colors;
}

}  // namespace

double ViewScale(double zoom) {
    return 1.0 / std::tan(23.5 * kPi / 180.0) / (3.0 - 0.5 * zoom);
}

int ExpectMayShow(const Image& drawn, const Scene& scene) {
    int undecided = 0;
    int wrong = 0;
    for (int i = 0; i < drawn.size.width * drawn.size.height; ++i) {
        const int x = i % drawn.size.width;
        const int y = i / drawn.size.width;
        const Colors possible = Predict(scene, x, y, drawn.size);
        undecided += possible.size() > 1 ? 1 : 0;
        wrong += std::count(possible.begin(), possible.end(), drawn.Pixel(x, y)) == 0 ? 1 : 0;
    }
    EXPECT_EQ(wrong, 0) << "pixels differ";
    return undecided;
}

void ExpectShows(const Image& drawn, const Scene& scene) {
    const int pixels = drawn.size.width * drawn.size.height;
    EXPECT_LT(ExpectMayShow(drawn, scene), pixels / 8 + 2) << "the model says too little";
}
