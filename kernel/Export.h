#pragma once

/// Marks the classes and functions of the kernel that the library exports.
#define OVR_EXPORT __attribute__((visibility("default")))

/// Lets the compiler check printf-style arguments. Positions count from 1, and `this` counts.
#define OVR_PRINTF(formatPosition, firstArgument) \
    __attribute__((format(printf, formatPosition, firstArgument)))
