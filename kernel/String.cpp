#include "kernel/String.h"

#include <cstring>

namespace OVR {

void String::Append(const char* text) {
    const uint32_t used = bytes_.IsEmpty() ? 0 : GetSize();
    const auto length = static_cast<uint32_t>(std::strlen(text));
    bytes_.Resize(used + length + 1);
    std::memcpy(bytes_.Data + used, text, length + 1);
}

}  // namespace OVR
