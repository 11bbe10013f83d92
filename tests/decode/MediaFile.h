#pragma once

#include <string>
#include <vector>

#include "TestStream.h"

/// Writes units to a file. The extension of \p path, such as ".mkv", selects the format.
/// \param parameterSets the parameter sets, if the units have none
void WriteMedia(const std::string& path, const TestStream& stream,
                const std::vector<TestUnit>& units, const std::vector<uint8_t>& parameterSets = {});

/// Encodes \p count pictures into a file.
void WriteMedia(const std::string& path, TestStream stream, int count);
