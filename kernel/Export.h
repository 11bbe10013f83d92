#pragma once

/// Marks what applications may use of the kernel; everything else stays inside the library.
#define OVR_EXPORT __attribute__((visibility("default")))

/// Lets the compiler check printf-style arguments; positions count from 1, `this` included.
#define OVR_PRINTF(formatPosition, firstArgument) \
    __attribute__((format(printf, formatPosition, firstArgument)))
