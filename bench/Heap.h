#pragma once

#include <malloc.h>

/// Keeps freed blocks of a frame's size in the heap. Otherwise the system maps new memory for each
/// frame, and writing to it causes a page fault for every 4 KiB.
inline void KeepLargeBlocks() {
    constexpr int kMegabyte = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, 32 * kMegabyte);
    mallopt(M_TRIM_THRESHOLD, 512 * kMegabyte);
}
