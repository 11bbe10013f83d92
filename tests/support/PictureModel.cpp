#include "support/PictureModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

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

bool NearInteger(double value) {
    return std::abs(value - std::round(value)) < kTooClose;
}

/// Nearest texel at (u, v); none when two are equally near.
std::optional<Rgba> Sample(const Image& image, double u, double v) {
    const double x = u * image.size.width;
    const double y = v * image.size.height;
    if (NearInteger(x) || NearInteger(y)) {
        return std::nullopt;
    }
    return image.Pixel(static_cast<int>(x), static_cast<int>(y));
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

std::optional<Rgba> PicturePixel(const Scene& scene, const Point& p) {
    const double u = (p.x + 1) / 2;
    const double v = (p.y + 1) / 2;
    const Point place = InSource(scene, u, v);
    const std::optional<Rgba> color = Sample(*scene.source, place.x, place.y);
    if (scene.mask == nullptr || !color) {
        return color;
    }
    const std::optional<Rgba> key = Sample(*scene.mask, u, v);
    if (!key) {
        return std::nullopt;
    }
    const bool black = (*key)[0] == 0 && (*key)[1] == 0 && (*key)[2] == 0;
    return black ? kKeyColor : Rgba{(*color)[0], (*color)[1], (*color)[2], (*key)[3]};
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

/// Draws the stickers over \p color, in order.
void OverlayStickers(const Scene& scene, const Point& p, Size size, std::optional<Rgba>& color) {
    const int halfWidth = size.width / 2;
    const int halfHeight = size.height / 2;
    for (const auto& [x, y] : scene.stickers) {
        if (x == -1 && y == -1) {
            continue;
        }
        const double left = static_cast<double>(x - halfWidth) / halfWidth - 0.05;
        const double top = static_cast<double>(y - halfHeight) / halfHeight - 0.4;
        const Cover cover = Covers(p, left, left + 0.1, top, top + 0.2);
        if (cover == Cover::Edge) {
            color = std::nullopt;
        } else if (cover == Cover::Inside) {
            const double u = (p.x - left) / 0.1;
            const double v = 1 - (p.y - top) / 0.2;  // First row nearest to the anchor.
            color = Sample(*scene.sticker, scene.colorMirror ? u : 1 - u, v);
        }
    }
}

/// What is seen at an output pixel; none where rounding decides.
std::optional<Rgba> Predict(const Scene& scene, int x, int y, Size size) {
    const Point p =
        Unproject(scene, (2.0 * x + 1) / size.width - 1, (2.0 * y + 1) / size.height - 1);
    std::optional<Rgba> color = scene.clear;
    switch (Covers(p, -1, 1, -1, 1)) {
        case Cover::Inside: color = PicturePixel(scene, p); break;
        case Cover::Edge: color = std::nullopt; break;
        case Cover::Outside: break;
    }
    if (scene.sticker != nullptr) {
        OverlayStickers(scene, p, size, color);
    }
    return color;
}

}  // namespace

double ViewScale(double zoom) {
    return 1.0 / std::tan(23.5 * kPi / 180.0) / (3.0 - 0.5 * zoom);
}

void ExpectShows(const Image& drawn, const Scene& scene) {
    const int pixels = drawn.size.width * drawn.size.height;
    int undecided = 0;
    int wrong = 0;
    for (int i = 0; i < pixels; ++i) {
        const int x = i % drawn.size.width;
        const int y = i / drawn.size.width;
        const std::optional<Rgba> expected = Predict(scene, x, y, drawn.size);
        undecided += expected ? 0 : 1;
        for (size_t c = 0; expected && c < expected->size(); ++c) {
            wrong += drawn.Pixel(x, y).at(c) != expected->at(c) ? 1 : 0;
        }
    }
    EXPECT_EQ(wrong, 0) << "channels differ";
    EXPECT_TRUE(scene.random || undecided < pixels / 8 + 2)
        << undecided << " of " << pixels << " undecided: the model says too little";
}
