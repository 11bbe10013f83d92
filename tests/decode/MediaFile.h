#pragma once

#include <string>
#include <vector>

#include "TestStream.h"

/// Writes units to a file. The extension of \p path, such as ".mkv", selects the format.
void WriteMedia(const std::string& path, const AVCodecContext& encoder,
                const std::vector<TestUnit>& units);

/// Encodes \p count pictures into a file.
void WriteMedia(const std::string& path, TestStream stream, int count);
