#pragma once

#include <android/log.h>

#include <cstdlib>
#include <iostream>

[[noreturn]] inline void FailCheck(const char* file, int line, const char* condition) {
    std::cerr << file << ':' << line << ": not " << condition << '\n';
    std::abort();
}

/// Stops the fuzzer, which then keeps the input.
#define CHECK(condition)                               \
    do {                                               \
        if (!(condition)) {                            \
            FailCheck(__FILE__, __LINE__, #condition); \
        }                                              \
    } while (false)

/// Fuzzers do not show the library's log.
int __android_log_vprint(int /*priority*/, const char* /*tag*/, const char* /*format*/, va_list) {
    return 0;
}
