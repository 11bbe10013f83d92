#pragma once

#include <array>

#include "FrameQueue.h"

/// 4 × 4 values, column by column.
using Matrix = std::array<float, 16>;

constexpr Matrix kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// Maps a place (s, t, 0, 1) in the upright picture, with t = 0 at the bottom, to the place in the
/// texture where it is sampled. From right to left, it is the product of
///
///     the frame's transform    a rotation or flip inside the unit square
///     the crop                 less half a texel on both sides, if it is smaller than the frame
///     a vertical flip          the frame's first row is at t = 0 of the texture
Matrix TransformOf(const WindowFrame& frame);
