#include "kernel/Allocator.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace OVR {
namespace {

constexpr size_t kDistanceSize = sizeof(uint32_t);
constexpr size_t kMaxStep = UINT32_MAX - kDistanceSize;

}  // namespace

Allocator* Allocator::pInstance = nullptr;

Allocator::~Allocator() = default;

void* Allocator::AllocDebug(size_t size, const char* /*file*/, unsigned /*line*/) {
    return Alloc(size);
}

// The four bytes before the returned address hold its distance to the start of the block.
// Frozen: aligned blocks
void* Allocator::AllocAligned(size_t size, size_t align) {
    const size_t step = std::max(align, kDistanceSize);
    // Blocks start at multiples of four. Only other steps can leave too little room in front.
    const size_t room = step % kDistanceSize == 0 ? step : step + kDistanceSize - 1;
    if (step > kMaxStep || size > SIZE_MAX - room) {
        return nullptr;
    }
    auto* block = static_cast<unsigned char*>(Alloc(size + room));
    if (block == nullptr) {
        return nullptr;
    }
    size_t distance = step - reinterpret_cast<uintptr_t>(block) % step;
    if (distance < kDistanceSize) {
        distance += step;
    }
    const auto stored = static_cast<uint32_t>(distance);
    std::memcpy(block + distance - kDistanceSize, &stored, kDistanceSize);
    return block + distance;
}

void Allocator::FreeAligned(void* p) {
    auto* aligned = static_cast<unsigned char*>(p);
    uint32_t distance = 0;
    std::memcpy(&distance, aligned - kDistanceSize, kDistanceSize);
    Free(aligned - distance);
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
