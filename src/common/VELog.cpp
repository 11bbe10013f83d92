#include "render/VELog.h"

#include <android/log.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr size_t kTagSize = 128;

// Frozen: long messages
constexpr int kLongMessage = 512;

void TagOf(const char* filePath, char (&tag)[kTagSize]) {
    const char* slash = std::strrchr(filePath, '/');
    const char* name = slash != nullptr ? slash + 1 : filePath;
    size_t length = 0;
    while (length < kTagSize - 1 && name[length] != '\0' && name[length] != '.') {
        tag[length] = name[length];
        ++length;
    }
    tag[length] = '\0';
}

__attribute__((format(printf, 3, 0))) int FormattedLength(char* buffer, size_t size,
                                                          const char* format, va_list args) {
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(buffer, size, format, copy);
    va_end(copy);
    return length;
}

}  // namespace

void LogWithFileTag(int priority, const char* filePath, const char* format, ...) {
    char tag[kTagSize];
    TagOf(filePath, tag);

    va_list args;
    va_start(args, format);
    const int length = FormattedLength(nullptr, 0, format, args);
    if (length < kLongMessage) {
        __android_log_vprint(priority, tag, format, args);
    } else {
        const size_t size = static_cast<size_t>(length) + 1;
        char* message = static_cast<char*>(std::malloc(size));
        (void)std::vsnprintf(message, size, format, args);
        __android_log_write(priority, tag, message);
        std::free(message);
    }
    va_end(args);
}

int LogWithTag(int priority, const char* tag, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const int result = __android_log_vprint(priority, tag, format, args);
    va_end(args);
    return result;
}
