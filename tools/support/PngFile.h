#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/Image.h"
#include "support/OutputFile.h"

/// \throws ToolError
Image ReadPng(const std::string& path);

/// Reads a PNG file from memory. \throws ToolError
Image DecodePng(const uint8_t* data, size_t size);

/// Makes a PNG file, with alpha, in memory. \param path for messages. \throws ToolError
std::vector<uint8_t> EncodePng(const std::string& path, const Image& image);

/// Writes a picture with its alpha. A failed call leaves no file. \throws ToolError
void WritePng(const std::string& path, const Image& image, Existing existing = Existing::kReplaced);

/// Writes a picture of one byte per pixel, 0 for black. \throws ToolError
void WriteGrayPng(const std::string& path, Size size, const uint8_t* pixels);
