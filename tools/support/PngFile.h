#pragma once

#include <cstdint>
#include <string>

#include "support/Image.h"

/// \throws ToolError
Image ReadPng(const std::string& path);

/// Reads a PNG file that lies in memory. \throws ToolError
Image DecodePng(const uint8_t* data, size_t size);

/// Writes a picture with its alpha. A file that fails leaves nothing behind. \throws ToolError
void WritePng(const std::string& path, const Image& image);

/// Writes a picture of one byte a pixel, 0 black. \throws ToolError
void WriteGrayPng(const std::string& path, Size size, const uint8_t* pixels);
