#pragma once

#include "kernel/Allocator.h"

/// Stands in front of the kernel's allocator while it lives. Has room for \p blocks blocks.
class CountingAllocator : public OVR::Allocator {
public:
    explicit CountingAllocator(int blocks = 1 << 20) : blocks_(blocks) { pInstance = this; }
    ~CountingAllocator() override { pInstance = &real_; }
    CountingAllocator(const CountingAllocator&) = delete;
    CountingAllocator& operator=(const CountingAllocator&) = delete;

    void* Alloc(size_t size) override { return ++made < blocks_ ? real_.Alloc(size) : nullptr; }
    void* Realloc(void* p, size_t newSize) override {
        return ++made < blocks_ ? real_.Realloc(p, newSize) : nullptr;
    }
    void Free(void* p) override { real_.Free(p); }

    int made = 0;

private:
    OVR::Allocator& real_ = *pInstance;
    int blocks_;
};
