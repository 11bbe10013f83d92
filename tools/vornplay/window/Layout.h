#pragma once

#include <optional>

#include "support/Image.h"

struct Point {
    double x = 0.0;
    double y = 0.0;
};

/// A part of a window, in its pixels, from its first row and column on.
struct Area {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// The sizes that relate what is pointed at to what is drawn.
struct Layout {
    Size window;    ///< In the units of the pointer.
    Size drawable;  ///< In pixels; more than the window's on a display of high density.
    Size picture;

    /// Where the picture stands: as large as fits, in the middle.
    Area PictureArea() const;

    /// Which place of the picture, in its pixels, the pointer is on; nothing beside it.
    std::optional<Point> PictureAt(int pointerX, int pointerY) const;

    /// How far the picture goes along when the pointer moves so far, in its pixels.
    double PictureDistance(double pointerDistance) const;

    /// Pixels of the drawable to one of the pointer's units.
    double Density() const;
};
