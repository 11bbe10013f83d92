#pragma once

#include <array>

#include "window/FillProgram.h"
#include "window/Layout.h"

/// Not premultiplied, from 0 to 1.
using Color = std::array<float, 4>;

/// Paints over the window, with smooth edges. Places are in pixels from the top left corner.
class Painter {
public:
    Painter();

    /// Call before the others. \param drawable the size of the window, in pixels
    void Begin(Size drawable);
    static void End();

    void RoundRect(const Area& area, double radius, const Color& color) const;
    /// A convex shape, clockwise. A triangle has a corner twice.
    void Quad(const std::array<Point, 4>& corners, const Color& color) const;
    void Picture(GLuint texture, const Area& area) const;

private:
    void LimitTo(const Area& area) const;

    FillProgram rect_;
    FillProgram quad_;
    FillProgram picture_;
    int height_ = 0;
};
