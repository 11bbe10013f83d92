#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What stands still in a video: for each byte the median of frames from all over the video.
/// Frames are RGB, of the size of the first. \throws ToolError
std::vector<uint8_t> FindBackground(const std::string& path);
