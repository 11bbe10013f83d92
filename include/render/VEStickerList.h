#pragma once

#include <utility>
#include <vector>

/// One (x, y) pair of output pixels for each sticker, in drawing order; (-1, -1) skips its sticker.
using VEStickerList = std::vector<std::pair<int, int>>;
