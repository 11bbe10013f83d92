#pragma once

#include <utility>
#include <vector>

/// The anchor of each sticker in pixels of the output, as (x, y), in drawing order. (-1, -1) skips
/// its sticker.
using VEStickerList = std::vector<std::pair<int, int>>;
