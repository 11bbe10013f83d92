#pragma once

#include <utility>

#include "Composition.h"
#include "window/Layout.h"

// Conversions between views and pixels of the renderer's output.

/// The point of the picture, which reaches from -1 to 1, that is seen at a place of the output.
Point PointSeenAt(const View& view, const Point& place, Size output);

/// The position of a sticker whose center is seen at a place of the output, as nearly as whole
/// numbers allow.
std::pair<int, int> StickerAt(const View& view, const Point& place, Size output);

/// \p view after a drag by so many pixels to the right: the picture follows the pointer.
View Dragged(const View& view, double pixels, Size output);

/// \p view so many steps nearer. What is seen in column \p x stays there.
View Zoomed(const View& view, double steps, double x, Size output);
