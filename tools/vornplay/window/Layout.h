#pragma once

#include <optional>

#include "support/Image.h"

struct Point {
    double x = 0.0;
    double y = 0.0;
};

/// A rectangle of a window, in pixels from the top left corner.
struct Area {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// The sizes that relate places of the pointer to places of the picture.
struct Layout {
    Size window;    ///< In the units of the pointer.
    Size drawable;  ///< In pixels; more than the window's on a display of high density.
    Size picture;
    double textScale = 1.0;  ///< What the user's desktop asks for, besides the density.

    /// Where the picture is: in the middle, as large as fits.
    Area PictureArea() const;

    /// The place of the picture, in its pixels, that the pointer is on; nothing if it is beside the
    /// picture.
    std::optional<Point> PictureAt(int pointerX, int pointerY) const;

    /// A distance of the pointer, in pixels of the picture.
    double PictureDistance(double pointerDistance) const;

    /// Pixels of the drawable per unit of the pointer.
    double Density() const;

    /// The size of texts and controls, which is 1 on a usual screen.
    double UiScale() const { return Density() * textScale; }

    /// The place of the pointer in pixels of the drawable.
    Point DrawableAt(int pointerX, int pointerY) const {
        return {pointerX * Density(), pointerY * Density()};
    }
};
