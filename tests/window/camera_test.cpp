// The conversions between the pointer, the window, the picture and its stickers.

#include "window/Camera.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// The size of the picture against the frame.
double Scale(const VEView& view) {
    return 2.2998426 / (3.0 - static_cast<double>(view.zoom) / 2.0);
}

/// Where the center of a sticker at this position is seen in the output.
Point SeenSticker(const VEView& view, const std::pair<int, int>& at, Size output) {
    const int halfWidth = output.width / 2;
    const int halfHeight = output.height / 2;
    const double px = static_cast<double>(at.first - halfWidth) / halfWidth;
    const double py = static_cast<double>(at.second - halfHeight) / halfHeight - 0.3;
    const double scale = Scale(view);
    return {output.width / 2.0 * (1.0 + scale * (px - static_cast<double>(view.x))),
            output.height / 2.0 * (1.0 + scale * (py - static_cast<double>(view.y)))};
}

constexpr VEView kCropping = {0.0F, 0.0F, 2.0F};
const VEView kViews[] = {kCropping, kFitView, {0.3F, 0.1F, 4.0F}, {-0.7F, -0.4F, 0.0F}};

}  // namespace

TEST(CameraTest, StickersLandUnderThePointerInEveryView) {
    for (const Size output : {Size{640, 480}, Size{641, 33}, Size{64, 1080}}) {
        for (const VEView& view : kViews) {
            for (const Point& place : {Point{0.5, 0.5}, Point{20.5, 30.5}, Point{63.5, 9.5}}) {
                const Point seen = SeenSticker(view, StickerAt(view, place, output), output);
                // Half of a position's unit, and what odd sizes lose in halving.
                const double unit = Scale(view);
                EXPECT_NEAR(seen.x, place.x, 0.51 * unit * output.width / (output.width - 1));
                EXPECT_NEAR(seen.y, place.y, 0.51 * unit * output.height / (output.height - 1));
            }
        }
    }
}

TEST(CameraTest, NoPlaceGivesThePositionThatHidesASticker) {
    const Size output = {40, 40};
    const VEView view = kFitView;
    for (int y = -30; y < 40; ++y) {
        const Point place = {-1.0, static_cast<double>(y)};
        EXPECT_NE(StickerAt(view, place, output), std::make_pair(-1, -1));
    }
}

TEST(CameraTest, WhatIsDraggedOrZoomedStaysUnderThePointer) {
    const Size output = {320, 200};
    for (const VEView& view : kViews) {
        const Point held = PointSeenAt(view, {100.0, 50.0}, output);
        const VEView dragged = Dragged(view, {37.0, -20.0}, output);
        EXPECT_NEAR(PointSeenAt(dragged, {137.0, 30.0}, output).x, held.x, 1e-5);
        EXPECT_NEAR(PointSeenAt(dragged, {137.0, 30.0}, output).y, held.y, 1e-5);
        EXPECT_EQ(dragged.zoom, view.zoom);
        const VEView nearer = Zoomed(view, 3.0, {100.0, 50.0}, output);
        EXPECT_NEAR(PointSeenAt(nearer, {100.0, 50.0}, output).x, held.x, 1e-5);
        EXPECT_NEAR(PointSeenAt(nearer, {100.0, 50.0}, output).y, held.y, 1e-5);
        EXPECT_NEAR(Scale(nearer) / Scale(view), 1.331, 1e-4);
    }
}

TEST(CameraTest, ZoomStopsBeforeThePicture) {
    const Size output = {320, 200};
    EXPECT_LT(Zoomed(kCropping, 1000.0, {160.0, 100.0}, output).zoom, 6.0F);
    EXPECT_GT(Zoomed(kCropping, -1000.0, {160.0, 100.0}, output).zoom, -100.0F);
}

TEST(CameraTest, PutsThePictureInTheMiddleAsLargeAsFits) {
    const Area wide = Layout{{500, 240}, {500, 240}, {320, 240}}.PictureArea();
    EXPECT_EQ(wide.left, 90);
    EXPECT_EQ(wide.top, 0);
    EXPECT_EQ(wide.width, 320);
    const Area high = Layout{{160, 300}, {160, 300}, {320, 240}}.PictureArea();
    EXPECT_EQ(high.left, 0);
    EXPECT_EQ(high.top, 90);
    EXPECT_EQ(high.height, 120);
}
