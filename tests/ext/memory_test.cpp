// The library allocates nothing for a frame but the mesh of a sticker. When the heap runs out, at
// each allocation of the library's in turn, creation fails.

#include <dlfcn.h>
#include <link.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <new>

#include "ext/ExtRenderer.h"
#include "ext/GlNameCount.h"
#include "kernel/Allocator.h"
#include "kernel/Log.h"
#include "kernel/System.h"

namespace {

/// How many more allocations succeed; negative for all.
thread_local int allocationsLeft = -1;
thread_local int allocations = 0;  ///< Of the library.

/// GL's own allocations always succeed.
bool IsOfTheLibrary(void* caller) {
    dl_find_object object;
    return _dl_find_object(caller, &object) == 0 &&
           std::strstr(object.dlfo_link_map->l_name, "libvornrenderer") != nullptr;
}

struct CountingAllocator : OVR::DefaultAllocator {
    void* Alloc(size_t size) override { return ++allocations, std::malloc(size); }
    void* Realloc(void* p, size_t size) override { return ++allocations, std::realloc(p, size); }
};

CountingAllocator countingAllocator;

}  // namespace

__attribute__((noinline)) void* operator new(size_t size) {
    if (IsOfTheLibrary(__builtin_return_address(0))) {
        ++allocations;
        if (allocationsLeft == 0) {
            throw std::bad_alloc();
        }
        --allocationsLeft;
    }
    return std::malloc(size == 0 ? 1 : size);
}
__attribute__((noinline)) void operator delete(void* block) noexcept {
    std::free(block);
}
__attribute__((noinline)) void operator delete(void* block, size_t) noexcept {
    std::free(block);
}

namespace {

TEST(Memory, OnlyStickersOfTheSevenFunctionsTakeIt) {
    OVR::System::Destroy();
    OVR::System::Init(OVR::Log::GetDefaultLog(), &countingAllocator);
    const TestContext context;
    Image frame = Noise({64, 48}, 1);
    RendererHarness renderer({VE_OUTPUT_MASKED, VE_MODE_RGBA, 64, 48, VE_MASK_RGBA, 8, 8});
    const auto allocationsOf = [&](VEStickerList stickers) {
        allocations = 0;
        void* pixels = frame.pixels.data();
        VEUpdateUserPosition(renderer.handle, 0.1F, 0, 2.5F, 0);
        VEUpdateRenderer(renderer.handle, pixels, 0, true, pixels);
        VEUpdateRendererWithSticker(renderer.handle, pixels, 0, true, pixels, 1, stickers);
        return allocations;
    };
    for (int warmUp = 0; warmUp < 4; ++warmUp) {
        allocationsOf({{30, 30}});
    }
    EXPECT_EQ(allocationsOf({}), 0);
    EXPECT_GT(allocationsOf({{30, 30}}), 0) << "the counter does not count";
}

TEST(Memory, CreationGivesAResultAndLeavesNothingAndADrawNeedsNone) {
    const TestContext context;
    const Image frame = Noise({8, 8}, 1);
    const VERendererOptions options =
        WithMask(OptionsOf(VE_SOURCE_RGBA, 8, 6), frame, VE_MASK_RGBA);
    Fill(options.outputTexture, frame);
    const int names = CountGlNames();
    VERenderer* renderer = nullptr;
    int tries = 0;
    for (VEResult result = VE_ERROR_MEMORY; result != VE_OK; ++tries) {
        ASSERT_LT(tries, 20);
        allocationsLeft = tries;
        result = VECreateRenderer(&options, &renderer);
        allocationsLeft = -1;
        if (result != VE_OK) {
            EXPECT_EQ(VE_ERROR_MEMORY, result);
            EXPECT_EQ(nullptr, renderer);
            EXPECT_EQ(names, CountGlNames());
        }
    }
    EXPECT_GT(tries, 2);

    const int32_t place[2] = {4, 4};
    VEDrawOptions draw = VEMakeDrawOptions();
    draw.frame = draw.mask = frame.pixels.data();
    draw.stickerTexture = options.outputTexture;
    draw.stickers = place;
    draw.stickerCount = 1;
    allocationsLeft = 0;
    for (int call = 0; call < 3; ++call) {
        EXPECT_EQ(VE_OK, VEDraw(renderer, &draw, nullptr));
    }
    EXPECT_EQ(VE_OK, VECloseRenderer(renderer, VE_CONTEXT_CURRENT));
    allocationsLeft = -1;
    EXPECT_EQ(names, CountGlNames());
}

}  // namespace
