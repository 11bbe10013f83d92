#pragma once

#include <string>
#include <vector>

#include "TestStream.h"

/// Puts units into a file of the format that its name's end tells, such as ".mkv".
/// \param parameterSets those that the units lack
void WriteMedia(const std::string& path, const TestStream& stream,
                const std::vector<TestUnit>& units, const std::vector<uint8_t>& parameterSets = {});

/// Encodes \p count pictures into a file.
void WriteMedia(const std::string& path, TestStream stream, int count);
