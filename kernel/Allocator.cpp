#include "kernel/Allocator.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace OVR {

Allocator* Allocator::pInstance = nullptr;

Allocator::~Allocator() = default;

void* Allocator::AllocDebug(size_t size, const char* /*file*/, unsigned /*line*/) {
    return Alloc(size);
}

// The four bytes before the returned address hold its distance to the start of the block.
// Frozen: aligned blocks
void* Allocator::AllocAligned(size_t size, size_t align) {
    const size_t step = std::max<size_t>(align, sizeof(uint32_t));
    auto* block = static_cast<unsigned char*>(Alloc(size + step));
    if (block == nullptr) {
        return nullptr;
    }
    const auto offset = static_cast<uint32_t>(step - reinterpret_cast<uintptr_t>(block) % step);
    unsigned char* aligned = block + offset;
    std::memcpy(aligned - sizeof(offset), &offset, sizeof(offset));
    return aligned;
}

void Allocator::FreeAligned(void* p) {
    auto* aligned = static_cast<unsigned char*>(p);
    uint32_t offset = 0;
    std::memcpy(&offset, aligned - sizeof(offset), sizeof(offset));
    Free(aligned - offset);
}

void Allocator::onSystemShutdown() {}

DefaultAllocator::~DefaultAllocator() = default;

void* DefaultAllocator::Alloc(size_t size) {
    return std::malloc(size);
}

void* DefaultAllocator::AllocDebug(size_t size, const char* /*file*/, unsigned /*line*/) {
    return std::malloc(size);
}

void* DefaultAllocator::Realloc(void* p, size_t newSize) {
    return std::realloc(p, newSize);
}

void DefaultAllocator::Free(void* p) {
    std::free(p);
}

DefaultAllocator* DefaultAllocator::InitSystemSingleton() {
    static DefaultAllocator allocator;
    return &allocator;
}

}  // namespace OVR
