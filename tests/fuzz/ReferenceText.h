#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A broken or whole character of a UTF-8 text: what it reads as, and its bytes.
struct ReferenceChar {
    uint32_t value;
    std::string bytes;
};

/// Reads UTF-8 by the table of well-formed byte sequences, with one replacement character for each
/// longest beginning of such a sequence and for each other byte.
std::vector<ReferenceChar> ReadUtf8(const std::string& utf8);
