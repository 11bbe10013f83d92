#pragma once

#include <cstdarg>
#include <cstdio>

#include "kernel/Export.h"

namespace OVR {
namespace StringUtils {

/// A printf-style text on the stack, cut to 1023 bytes:
/// \code glGetUniformLocation(program, StringUtils::Va("Texture%i", unit)); \endcode
class Va {
public:
    explicit Va(const char* format, ...) OVR_PRINTF(2, 3) {
        va_list args;
        va_start(args, format);
        (void)std::vsnprintf(buffer_, sizeof(buffer_), format, args);
        va_end(args);
        buffer_[sizeof(buffer_) - 1] = '\0';
    }

    operator const char*() const { return buffer_; }

private:
    char buffer_[1024];
};

}  // namespace StringUtils
}  // namespace OVR
