#pragma once

#include "kernel/Array.h"

namespace OVR {

/// A NUL-terminated UTF-8 text in memory of the kernel's allocator.
class String {
public:
    String() { Append(""); }

    void Append(const char* text);

    /// Bytes, without the NUL.
    uint32_t GetSize() const { return bytes_.Size - 1; }
    const char* ToCStr() const { return bytes_.Data; }

private:
    Array<char> bytes_;
};

}  // namespace OVR
