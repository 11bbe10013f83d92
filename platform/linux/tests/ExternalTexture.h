#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Draws an external texture at \p width × \p height pixels. \return RGBA, with t = 0 first. Needs
/// a current context.
std::vector<uint8_t> ReadExternal(unsigned texture, int width, int height);
