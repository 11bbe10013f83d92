// Defines the functions of the system's log library, so that the renderer's log comes here.

#include "LogSink.h"

#include <android/log.h>

#include <array>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <iostream>
#include <string>

namespace {

std::atomic<bool> shown{false};

/// Some messages have line ends, some have none.
std::string Trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(" \n");
    const size_t last = text.find_last_not_of(" \n");
    return first == std::string::npos ? std::string() : text.substr(first, last - first + 1);
}

}  // namespace

void ShowLog(bool show) {
    shown = show;
}

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the system's names.

extern "C" int __android_log_write(int /*priority*/, const char* tag, const char* text) {
    if (shown) {
        std::cerr << tag << ": " << Trimmed(text) << '\n';
    }
    return 1;
}

extern "C" int __android_log_vprint(int priority, const char* tag, const char* fmt, va_list ap) {
    std::array<char, 1024> text{};
    if (std::vsnprintf(text.data(), text.size(), fmt, ap) < 0) {
        return -1;
    }
    return __android_log_write(priority, tag, text.data());
}

extern "C" int __android_log_print(int prio, const char* tag, const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const int result = __android_log_vprint(prio, tag, fmt, args);
    va_end(args);
    return result;
}

// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
