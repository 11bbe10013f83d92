#pragma once

#include <cstdint>
#include <string>

#include "support/Image.h"

/// \throws ToolError
Image ReadPng(const std::string& path);

/// Reads a PNG file from memory. \throws ToolError
Image DecodePng(const uint8_t* data, size_t size);

/// Writes a picture with its alpha. A failed call leaves no file. \throws ToolError
void WritePng(const std::string& path, const Image& image);

/// Writes a picture of one byte per pixel, 0 for black. \throws ToolError
void WriteGrayPng(const std::string& path, Size size, const uint8_t* pixels);
