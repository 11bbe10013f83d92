#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// What a GL_TEXTURE_EXTERNAL_OES looks like: \p width × \p height pixels in RGBA, those at t = 0
/// first. Needs a current context.
std::vector<uint8_t> ReadExternal(unsigned texture, int width, int height);
