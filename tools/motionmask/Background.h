#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What stands still in a video: the median of each byte of its frames, sampled over its length.
/// Frames are RGB, of the size of the first. \throws ToolError
std::vector<uint8_t> FindBackground(const std::string& path);
