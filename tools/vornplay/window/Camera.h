#pragma once

#include <utility>

#include "Composition.h"
#include "window/Layout.h"

// Conversions between views and pixels of the renderer's output.

/// The point of the picture, which reaches from -1 to 1, that is seen at a place of the output.
Point PointSeenAt(const VEView& view, const Point& place, Size output);

/// The position of a sticker whose center is seen at a place of the output, as nearly as whole
/// numbers allow.
std::pair<int, int> StickerAt(const VEView& view, const Point& place, Size output);

/// \p view after a drag by so many pixels to the right and down: the picture follows the pointer,
/// until only a quarter of its width or height is left in the frame.
VEView Dragged(const VEView& view, const Point& pixels, Size output);

/// \p view so many steps nearer. What is seen at \p place stays there, within the same limit.
VEView Zoomed(const VEView& view, double steps, const Point& place, Size output);
