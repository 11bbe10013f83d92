#pragma once

#include <utility>

#include "Composition.h"
#include "window/Layout.h"

// How views and pixels of the renderer's output belong together.

/// The point that is seen at a place of the output, on the square from -1 to 1 that the picture
/// lies on.
Point PointSeenAt(const View& view, const Point& place, Size output);

/// The position whose sticker is seen with its centre at a place of the output, as nearly as whole
/// numbers allow.
std::pair<int, int> StickerAt(const View& view, const Point& place, Size output);

/// \p view moved so that the picture goes along with a pointer that went so many pixels to the
/// right.
View Dragged(const View& view, double pixels, Size output);

/// \p view so many steps nearer. What is seen at \p x stays in its column.
View Zoomed(const View& view, double steps, double x, Size output);
