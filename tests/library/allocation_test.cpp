// The library allocates nothing for a frame. It does for the mesh of a sticker.

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "kernel/Allocator.h"
#include "kernel/Log.h"
#include "kernel/System.h"
#include "support/RendererHarness.h"

namespace {

std::atomic<int> allocations{0};

void* Count(size_t size) {
    ++allocations;
    return std::malloc(size);
}

struct CountingAllocator : OVR::DefaultAllocator {
    void* Alloc(size_t size) override { return Count(size); }
    void* Realloc(void* p, size_t size) override {
        ++allocations;
        return std::realloc(p, size);
    }
};

CountingAllocator countingAllocator;

}  // namespace

// Kept out of line: inlined, the pair looks mismatched to the compiler.
__attribute__((noinline)) void* operator new(size_t size) {
    void* p = Count(size == 0 ? 1 : size);
    if (p == nullptr) {
        throw std::bad_alloc();
    }
    return p;
}
__attribute__((noinline)) void operator delete(void* p) noexcept {
    std::free(p);
}
__attribute__((noinline)) void operator delete(void* p, size_t) noexcept {
    std::free(p);
}

namespace {

TEST(Allocation, NoneForAFrameButForItsStickers) {
    OVR::System::Destroy();
    OVR::System::Init(OVR::Log::GetDefaultLog(), &countingAllocator);
    TestContext context;
    Image frame = Noise({64, 48}, 1);
    Image mask = Noise({8, 8}, 2);
    RendererHarness renderer({VE_OUTPUT_MASKED, VE_MODE_RGBA, 64, 48, VE_MASK_RGBA, 8, 8});
    VEStickerList none;
    VEStickerList some = {{30, 30}};
    const auto update = [&](VEStickerList& stickers) {
        allocations = 0;
        VEUpdateUserPosition(renderer.handle, 0.1F, 0, 2.5F, 0);
        VEUpdateRenderer(renderer.handle, frame.pixels.data(), 0, true, mask.pixels.data());
        VEUpdateRendererWithSticker(renderer.handle, frame.pixels.data(), 0, true,
                                    mask.pixels.data(), 1, stickers);
        return allocations.load();
    };
    for (int warmUp = 0; warmUp < 4; ++warmUp) {
        update(some);
    }
    EXPECT_EQ(update(none), 0);
    EXPECT_GT(update(some), 0) << "the counter does not count";
}

}  // namespace
